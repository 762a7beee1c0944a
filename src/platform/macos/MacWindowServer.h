#pragma once

#include "platform/WindowServer.h"

namespace ravlin {

// The window server through Core Graphics' window list and window images.
class MacWindowServer final : public WindowServer {
public:
    std::optional<PlistArray> windowList(WindowListOption option) override;
    QImage windowImage(std::uint32_t windowNumber) override;
};

} // namespace ravlin
