#pragma once

#include "PointerGuard.h"
#include "foundation/Geometry.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace ravlin {

class DiagnosticLogs;
class Events;
class PermissionManager;
class Scheduler;
class MenuBarReader;
struct MouseEvent;
enum class MouseEventType : int;

// Moves another application's status item without the user's hand: a
// command-drag synthesised and routed straight to the item's window, pressed far
// outside every display so that nothing visible is clicked. The drag takes the pointer for
// a moment, so it is never made while the user is using the pointer (see PointerGuard), and
// the pointer is always put back where it was.
class MoveEngine {
public:
    // One on-screen status-item window as the engine sees it; x and y are its centre.
    struct Probe {
        std::uint32_t id = 0;
        std::int32_t pid = 0;
        double x = 0;
        double y = 0;
        QString name;
    };

    static constexpr WindowServerPoint parkingSpot{-32000, -32000};
    // How long the platform gets between press and release.
    static constexpr double pressSeconds = 0.15;

    MoveEngine(Events& events, const MenuBarReader& reader, Scheduler& scheduler,
               const PermissionManager& permissions, const DiagnosticLogs& logs);

    // False (with a log line) when nothing was moved: the user is at work with the pointer,
    // or where it stands cannot be read (so it could not be put back).
    bool move(std::uint32_t windowID, std::int32_t pid, double toX, double menuBarY);
    const PointerGuard& guard() const { return m_guard; }
    // The on-screen status items of other processes, in the window server's order.
    std::vector<Probe> statusItems() const;
    // Tries the technique on the running system and writes the report; returns it too.
    QString runSelfTest();

    static MouseEvent routed(MouseEventType type, WindowServerPoint point, std::uint64_t flags,
                             std::uint32_t window, std::int32_t pid);

private:
    std::optional<Probe> find(std::uint32_t id) const;

    Events& m_events;
    const MenuBarReader& m_reader;
    Scheduler& m_scheduler;
    const PermissionManager& m_permissions;
    const DiagnosticLogs& m_logs;
    PointerGuard m_guard;
};

} // namespace ravlin
