#pragma once

#include "platform/ApplicationControl.h"

#include <optional>

namespace ravlin {

// The simulated process: its activation policy, a terminate request and its exit.
class SimApplicationControl final : public ApplicationControl {
public:
    Policy activationPolicy() const override { return m_policy; }
    void setActivationPolicy(Policy policy) override { m_policy = policy; }
    void terminate() override
    {
        m_terminateRequested = true;
        if (!m_exitCode)
            m_exitCode = 0;
    }
    void exit(int status) override
    {
        if (!m_exitCode)
            m_exitCode = status;
    }

    bool running() const { return !m_exitCode.has_value(); }
    std::optional<int> exitCode() const { return m_exitCode; }
    bool terminateRequested() const { return m_terminateRequested; }

private:
    Policy m_policy = Policy::Accessory;
    bool m_terminateRequested = false;
    std::optional<int> m_exitCode;
};

} // namespace ravlin
