#pragma once

#include "foundation/Geometry.h"
#include "platform/Accessibility.h"

#include <map>
#include <tuple>

namespace ravlin {

class SimDesktop;
struct SimItem;

// The accessibility tree of the simulated desktop. Each application element has
// an extras-menu-bar element; below it, for each status item, the element with the
// item's actions and frame and, `depth` levels further down, the element at the
// item's centre with its title, description and help. Where items have no windows
// (generation 27) the menu-bar agent's element holds one menu bar per display, and
// the main display's bar one slot per item (its identifier and frame) whose child is
// the item's element of its application. A hung application answers every request
// with "cannot complete" after its messaging timeout has passed in virtual time.
class SimAccessibility final : public Accessibility {
public:
    // The platform's own messaging timeout when none was set.
    static constexpr float defaultTimeout = 6.0f;

    explicit SimAccessibility(SimDesktop& desktop) : m_desktop(desktop) {}

    bool isProcessTrusted() override;
    bool isProcessTrustedWithPrompt() override;
    AXElement systemWideElement() override;
    AXElement applicationElement(std::int32_t pid) override;
    AXResult<AXElement> elementAtPosition(const AXElement& root, float x, float y) override;
    AXResult<AXValue> copyAttributeValue(const AXElement& element,
                                         const QString& attribute) override;
    AXResult<QStringList> copyActionNames(const AXElement& element) override;
    int performAction(const AXElement& element, const QString& action) override;
    AXResult<std::int32_t> pid(const AXElement& element) override;
    int setMessagingTimeout(const AXElement& element, float seconds) override;

    struct Node {
        enum class Kind {
            SystemWide,
            Application,
            ExtrasBar,
            ItemPart,
            Placeholder,
            AgentBar, // `window` is the display's index
            Slot,     // `window` is the item's
            Overflow, // the system's overflow menu, a slot of the main display's bar
            AppMenu,  // a title of the front application's menus
        };
        Kind kind = Kind::SystemWide;
        std::int32_t pid = 0;
        std::int64_t window = 0;
        int level = 0; // ItemPart: 0 holds the actions, the item's depth is the hit element
        auto key() const { return std::tuple(int(kind), pid, window, level); }
    };

private:
    static AXElement make(const Node& node);
    static const Node* node(const AXElement& element);
    // The error every request meets before it reaches the element, or success.
    int gate(const Node& node);
    const SimItem* itemOf(const Node& node) const;
    float timeoutFor(const Node& node) const;
    AXResult<AXValue> applicationAttribute(const Node& node, const QString& attribute);
    AXResult<AXValue> extrasAttribute(const Node& node, const QString& attribute);
    AXResult<AXValue> itemAttribute(const Node& node, const QString& attribute);
    AXResult<AXValue> agentAttribute(const Node& node, const QString& attribute);
    AXResult<AXValue> barAttribute(const Node& node, const QString& attribute);
    AXResult<AXValue> slotAttribute(const Node& node, const QString& attribute);
    AXResult<AXValue> frameAttribute(const WindowServerRect& frame, const QString& attribute);
    bool isAgent(std::int32_t pid) const;

    SimDesktop& m_desktop;
    float m_globalTimeout = defaultTimeout;
    std::map<std::tuple<int, std::int32_t, std::int64_t, int>, float> m_timeouts;
};

} // namespace ravlin
