#pragma once

#include "ResolvedItem.h"

#include <QStringList>

#include <optional>

namespace ravlin {

class AXElement;
class Accessibility;
class PermissionManager;
class Workspace;

// Identifies and presses the user-interface element at a point of the screen
// (window-server coordinates) through the accessibility interface.
class AXResolver {
public:
    // Presses try at most the element that was hit and this many of its parents.
    static constexpr int maxParents = 5;
    // How long an application may take to answer: set on the system-wide element, it is
    // the default for every element, so one hung application cannot freeze Ravlin.
    static constexpr float messagingTimeout = 0.25f;
    static const QStringList& wantedActions();

    AXResolver(Accessibility& accessibility, Workspace& workspace,
               const PermissionManager& permissions);

    std::optional<ResolvedItem> resolve(double x, double y);
    // The same for an element already in hand (an item of a bar without item windows).
    std::optional<ResolvedItem> resolve(const AXElement& element);
    // True when one of the element's press-like actions went through.
    bool press(double x, double y);
    bool press(const AXElement& element);

private:
    std::optional<AXElement> hitTest(double x, double y);
    std::optional<QString> title(const AXElement& element);
    ResolvedItem describe(const AXElement& element, std::optional<QString> title);
    bool pressFrom(AXElement element);
    // The attribute as non-empty text, or nothing.
    std::optional<QString> string(const AXElement& element, const QString& attribute);
    bool performWantedAction(const AXElement& element);
    std::optional<AXElement> parent(const AXElement& element);

    Accessibility& m_accessibility;
    Workspace& m_workspace;
    const PermissionManager& m_permissions;
};

} // namespace ravlin
