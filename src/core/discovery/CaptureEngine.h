#pragma once

#include "MenuBarItemInfo.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace ravlin {

class BarItemFactory;
class DiagnosticLogs;
class ItemCapture;
class MoveEngine;
class Scheduler;
class MenuBarReader;
class MenuBarSystem;
struct BarItem;

// Lists every status-item window of other processes, on screen or not, and turns
// the bar into panel items, bringing off-screen items into view for a moment.
class CaptureEngine {
public:
    // One window as read from the window list, in window-server coordinates.
    struct Raw {
        std::uint32_t id = 0;
        std::int32_t pid = 0;
        double x = 0;
        double y = 0;
        double w = 0;
        double h = 0;
        QString owner;
        QString name;

        MenuBarItemInfo info() const { return {std::int64_t(id), x, y, w, h, owner, name}; }
    };

    // Where a capture stages off-screen items: left of the main item, on the menu bar's line.
    struct Stage {
        double stageX = 0;
        double menuBarY = 0;
        double thresholdX = 0;
    };

    // The waits that let the window server settle a moved item.
    static constexpr double settleOnScreenSeconds = 0.30;
    static constexpr double settleBackSeconds = 0.24;
    // How long an item brought onto the stage waits for the user's hands to rest to go back.
    static constexpr double putBackPatience = 10.0;

    CaptureEngine(const MenuBarReader& reader, const ItemCapture& capture, MoveEngine& mover,
                  BarItemFactory& factory, Scheduler& scheduler, const DiagnosticLogs& logs);

    // Left to right.
    std::vector<Raw> scanAll() const;
    std::optional<Raw> current(std::uint32_t id) const;
    // Where items cannot be moved, an item without a picture is taken as it is.
    void setSystem(const MenuBarSystem& system) { m_system = &system; }
    // The bar's items as panel items, in bar order, each key once.
    std::vector<BarItem> captureAll(double stageX, double menuBarY, double thresholdX);
    // The stage left of the main item (its left edge, when it has a window) on the current bar.
    Stage stageLeftOf(std::optional<double> mainItemLeftX) const;
    // Captures once and reports whether the bar kept its order; returns the report it wrote.
    QString runSelfTest(double stageX, double menuBarY, double thresholdX);

private:
    std::optional<BarItem> captureOffScreen(const Raw& raw, double stageX, double menuBarY);

    const MenuBarReader& m_reader;
    const ItemCapture& m_capture;
    MoveEngine& m_mover;
    BarItemFactory& m_factory;
    Scheduler& m_scheduler;
    const DiagnosticLogs& m_logs;
    const MenuBarSystem* m_system = nullptr;
};

} // namespace ravlin
