#pragma once

#include "platform/ApplicationControl.h"

namespace ravlin {

// NSApplication: the activation policy (accessory: no Dock icon) and the end of the process.
class MacApplicationControl final : public ApplicationControl {
public:
    Policy activationPolicy() const override;
    void setActivationPolicy(Policy policy) override;
    void activate() override;
    void terminate() override;
    void exit(int status) override;
};

} // namespace ravlin
