#pragma once

#include "platform/HttpClient.h"

#include <QByteArray>

#include <memory>

class QNetworkAccessManager;

namespace ravlin {

class Scheduler;

// HTTP over Qt's network access. Each exchange has a deadline, and an answer
// larger than the cap is abandoned rather than held in memory.
class QtHttpClient final : public HttpClient {
public:
    struct Options {
        double timeoutSeconds = 15;
        qint64 maxBodyBytes = 1 << 20;
        QByteArray userAgent = QByteArrayLiteral("Ravlin/" RAVLIN_VERSION " (menu-bar organiser)");
    };

    explicit QtHttpClient(Scheduler& scheduler);
    QtHttpClient(Scheduler& scheduler, Options options);
    ~QtHttpClient() override;

    void get(const QUrl& url, Completion completion) override;

private:
    Scheduler& m_scheduler;
    Options m_options;
    std::unique_ptr<QNetworkAccessManager> m_manager;
};

} // namespace ravlin
