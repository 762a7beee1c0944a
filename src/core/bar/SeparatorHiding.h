#pragma once

#include "HidingTechnique.h"

#include <memory>
#include <vector>

namespace ravlin {

// Hiding by separators: every item left of Ravlin's hidden separator is pushed out of sight
// when the separator grows long, and comes back when it is short again; an always-hidden
// separator further left does the same for its section. Where the bar keeps no item as long
// as a display, a collapsed separator is spread over several shorter items.
class SeparatorHiding : public HidingTechnique {
public:
    static constexpr double sepLength = 10.0;
    static constexpr double collapsedLength = 10000.0;
    static inline const QString hiddenName = QStringLiteral("Ravlin.HiddenSeparator");
    static inline const QString alwaysName = QStringLiteral("Ravlin.AlwaysHiddenSeparator");

    using HidingTechnique::HidingTechnique;
    ~SeparatorHiding() override;

    void install() override;
    void uninstall() override;
    void apply(const HidingState& state) override;
    void exposeAll() override;
    void bringIntoReach(const HidingState& state, std::function<void()> ready) override;
    void verify() override;
    bool holds() const override { return m_holds; }
    std::optional<HiddenBy> hiddenBy(const BarEntry& entry) const override;
    std::vector<std::optional<HiddenBy>>
    hiddenBy(const std::vector<BarEntry>& entries) const override;
    bool keepsArrangement() const override { return true; }
    const StatusItem* marker(BarArrangement::Section section) const override;
    int separatorCount() const override;
    void alwaysHiddenSectionChanged(bool on) override;
    void placementsChanged() override;
    void displaysChanged() override;

    const std::vector<std::unique_ptr<StatusItem>>& hiddenSpan() const { return m_hiddenSpan; }
    const std::vector<std::unique_ptr<StatusItem>>& alwaysSpan() const { return m_alwaysSpan; }

protected:
    // How many items a collapsed separator is spread over.
    virtual int itemsPerSeparator() const = 0;
    // The bar dropped a collapsed separator: what to do about it.
    virtual void separatorDropped(double length) = 0;

    double collapsedSeparatorLength() const;
    void verifyLength(double length);
    bool separatorsKept() const;
    // Made anew, at the places the arrangement wants (the bar may have dropped the old ones).
    void rebuild();
    void setHolds(bool holds);
    const HidingState& state() const { return m_state; }

private:
    struct Borders {
        std::optional<ScreenRect> always; // null while its section shows, or without one
        std::optional<ScreenRect> hidden;
    };
    Borders borders() const;
    static std::optional<HiddenBy> hiddenBy(const BarEntry& entry, const Borders& borders);
    std::unique_ptr<StatusItem> makeSeparator(const QString& autosaveName, bool dimmed);
    void placeByArrangement();
    void fillSpans();
    void fillSpan(std::vector<std::unique_ptr<StatusItem>>& span, const QString& separatorName,
                  int wanted);
    void setPosition(const QString& autosaveName, double position);
    std::optional<ScreenRect> frameOf(const StatusItem* item) const;

    std::unique_ptr<StatusItem> m_hiddenSep;
    std::unique_ptr<StatusItem> m_alwaysSep;
    std::vector<std::unique_ptr<StatusItem>> m_hiddenSpan;
    std::vector<std::unique_ptr<StatusItem>> m_alwaysSpan;
    HidingState m_state;
    bool m_holds = true;
};

// One separator far longer than any display (where the bar keeps such items).
class LongSeparators final : public SeparatorHiding {
public:
    using SeparatorHiding::SeparatorHiding;
    Kind kind() const override { return Kind::LongSeparators; }

protected:
    int itemsPerSeparator() const override { return 1; }
    void separatorDropped(double length) override;
};

// Separators under the longest item the bar keeps, as many as span the widest display.
class ShortSeparators final : public SeparatorHiding {
public:
    using SeparatorHiding::SeparatorHiding;
    Kind kind() const override { return Kind::ShortSeparators; }

protected:
    int itemsPerSeparator() const override;
    void separatorDropped(double length) override;
};

} // namespace ravlin
