#pragma once

#include "HidingTechnique.h"

#include <QSet>

#include <memory>
#include <vector>

namespace ravlin {

struct PlatformError;

// Hiding through the system's assessment mode, which keeps out of the bar every item whose
// application (or, for the system's own items, whose number) it is not told to allow. It
// works per application: an application stays in the bar while any of its items is placed
// there, and goes while all of them are placed in the panel or nowhere. Showing the hidden
// section allows what is placed in the panel; opening an item allows its application alone;
// arrange mode lifts the restriction and marks the sections with separators for the user's
// drags.
class EngineHiding final : public HidingTechnique {
public:
    explicit EngineHiding(HidingContext& context);
    ~EngineHiding() override;

    Kind kind() const override { return Kind::HideEngine; }
    void install() override {}
    void uninstall() override;
    void apply(const HidingState& state) override;
    void exposeAll() override;
    void bringIntoReach(const HidingState& state, std::function<void()> ready) override;
    bool holds() const override { return !m_refused; }
    std::optional<HiddenBy> hiddenBy(const BarEntry& entry) const override;
    // Only while arrange mode marks the sections in the bar.
    bool keepsArrangement() const override { return bool(m_hiddenMarker); }
    const StatusItem* marker(BarArrangement::Section section) const override;
    bool hidesWholeApplications() const override { return true; }

private:
    struct AllowList {
        QSet<QString> bundles;
        std::vector<int> systemItems;
        bool operator==(const AllowList&) const = default;
    };
    // Null: nothing is to be hidden (arrange mode, or an item that only a release can reach).
    std::optional<AllowList> allowListFor(const HidingState& state) const;
    void request(const std::optional<AllowList>& list, std::function<void()> then);
    void answered(int generation, const AllowList& list, const PlatformError* error);
    void runWaiting();
    bool allows(const AllowList& list, const BarEntry& entry) const;
    void placeMarkers();
    void removeMarkers();

    HidingState m_state;
    std::optional<AllowList> m_asked;   // the list last asked for
    std::optional<AllowList> m_granted; // the list in force; null: nothing hidden
    int m_generation = 0;               // of the last request or release
    int m_released = 0;                 // the generation of the last release
    std::vector<std::function<void()>> m_waiting; // to run once the last request is answered
    bool m_refused = false;
    std::unique_ptr<StatusItem> m_hiddenMarker;
    std::unique_ptr<StatusItem> m_alwaysMarker;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
