#pragma once

#include "StatusWindow.h"

#include <optional>
#include <vector>

namespace ravlin {

class WindowServer;
enum class WindowListOption : std::uint32_t;

// Reads the status-item windows (layer 25) out of the window list. Entries that
// are not dictionaries, lack a window number or carry one outside the unsigned
// 32-bit range are skipped with a warning: one odd window must not stop a scan.
class WindowListReader {
public:
    static constexpr std::int64_t statusWindowLayer = 25;

    explicit WindowListReader(WindowServer& windowServer) : m_windowServer(windowServer) {}

    // In the window server's order; nothing when the list cannot be read.
    std::optional<std::vector<StatusWindow>> statusWindows(WindowListOption option) const;

private:
    WindowServer& m_windowServer;
};

} // namespace ravlin
