#pragma once

#include "UrlCommand.h"

#include <QStringList>

#include <optional>

namespace ravlin {

class AppDelegate;
struct BarItem;

// Carries out the URL scheme's requests on the running application, as the user's own
// clicks and keys would. A URL that is not one of the requests, or asks for a layout or an
// item there is none of, gets a log line and nothing else. URLs that arrive while the
// application is still starting wait for it.
class UrlCommands {
public:
    static constexpr qsizetype maxWaiting = 16;

    explicit UrlCommands(AppDelegate& app) : m_app(app) {}

    // Whether the URL asked for something this application does (it is done, or waits).
    bool handle(const QString& url);
    // Start-up is over: what waited runs now.
    void ready();
    // The item a URL names: by its key, else by its name as the panel shows it (letter case
    // aside); the first of several with that name.
    std::optional<BarItem> findItem(const QString& keyOrName) const;

private:
    void perform(const UrlCommand& command);
    void search(const QString& text);

    AppDelegate& m_app;
    QList<UrlCommand> m_waiting;
};

} // namespace ravlin
