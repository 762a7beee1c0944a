#pragma once

#include <QString>

#include <optional>

namespace ravlin {

// One request of the URL scheme that launchers, Shortcuts and scripts drive Ravlin with:
//   ravlin://panel (or /open), ravlin://panel/close, ravlin://panel/toggle,
//   ravlin://reveal, ravlin://hide, ravlin://layout/<name>, ravlin://item/<key or name>/open,
//   ravlin://search?q=<text>
// Names and texts are percent-encoded. Nothing else is understood: no URL can change a
// setting beyond these commands.
struct UrlCommand {
    enum class Action { OpenPanel, ClosePanel, TogglePanel, Reveal, Hide, SwitchLayout, OpenItem, Search };

    static inline const QString scheme = QStringLiteral("ravlin");
    // Longer URLs are not read at all.
    static constexpr int maxLength = 2048;

    Action action = Action::OpenPanel;
    QString argument; // the layout's name, the item's key or name, the text to search for

    // The request the text makes; nothing, and in `why` the reason, when it makes none.
    static std::optional<UrlCommand> parse(const QString& text, QString* why = nullptr);

    bool operator==(const UrlCommand&) const = default;
};

} // namespace ravlin
