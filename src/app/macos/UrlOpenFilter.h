#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace ravlin {

// The system opens a URL of Ravlin's scheme (a launcher, Shortcuts or `open ravlin://panel`)
// by sending the application its "get URL" Apple event, which Qt hands on as a file-open
// event. Installed on the application, this passes each such URL to the handler as the system
// gave it; what the URL means is decided in the core. The URL that launched the application
// arrives before start-up is over; the handler keeps it until then.
class UrlOpenFilter final : public QObject {
public:
    explicit UrlOpenFilter(std::function<void(const QString& url)> handler)
        : m_handler(std::move(handler))
    {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(const QString& url)> m_handler;
};

} // namespace ravlin
