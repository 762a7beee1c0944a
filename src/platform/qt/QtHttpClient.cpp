#include "QtHttpClient.h"

#include "foundation/Logging.h"
#include "foundation/Scheduler.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>

namespace ravlin {
namespace {

// One exchange: it ends exactly once, whichever comes first of the answer, the
// deadline or an answer grown too large.
struct Exchange {
    HttpClient::Completion completion;
    QPointer<QNetworkReply> reply;
    Timer deadline;
    bool done = false;

    void finish(std::optional<QByteArray> body)
    {
        if (done)
            return;
        done = true;
        deadline.invalidate();
        if (reply) {
            reply->disconnect();
            reply->abort();
            reply->deleteLater();
        }
        if (auto c = std::move(completion))
            c(std::move(body));
    }
};

// Any HTTP answer counts, whatever its status: the caller judges the body.
std::optional<QByteArray> answerOf(QNetworkReply& reply, qint64 cap)
{
    if (reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid()) {
        if (reply.bytesAvailable() <= cap)
            return reply.readAll();
        qCWarning(lcWeather) << "answer larger than" << cap
                             << "bytes abandoned:" << reply.url().toString(QUrl::RemoveQuery);
        return std::nullopt;
    }
    qCInfo(lcWeather) << "request failed:" << reply.url().toString(QUrl::RemoveQuery)
                      << reply.errorString();
    return std::nullopt;
}

} // namespace

QtHttpClient::QtHttpClient(Scheduler& scheduler) : QtHttpClient(scheduler, Options()) {}

QtHttpClient::QtHttpClient(Scheduler& scheduler, Options options)
    : m_scheduler(scheduler), m_options(std::move(options)),
      m_manager(std::make_unique<QNetworkAccessManager>())
{}

QtHttpClient::~QtHttpClient() = default;

void QtHttpClient::get(const QUrl& url, Completion completion)
{
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, m_options.userAgent);
    // The deadline is a whole-exchange limit kept by the scheduler (Qt's transfer
    // timeout only measures silence, so a server that trickles bytes would outlast it).
    request.setTransferTimeout(0);
    auto exchange = std::make_shared<Exchange>();
    exchange->completion = std::move(completion);
    QNetworkReply* reply = m_manager->get(request);
    exchange->reply = reply;

    const double timeout = m_options.timeoutSeconds;
    exchange->deadline = m_scheduler.after(timeout, [exchange, url, timeout] {
        qCInfo(lcWeather) << "no answer within" << timeout << "s from"
                          << url.toString(QUrl::RemoveQuery);
        exchange->finish(std::nullopt);
    });
    const qint64 cap = m_options.maxBodyBytes;
    QObject::connect(reply, &QNetworkReply::downloadProgress, reply,
                     [exchange, cap, url](qint64 received, qint64 total) {
                         if (received > cap || total > cap) {
                             qCWarning(lcWeather)
                                 << "answer larger than" << cap
                                 << "bytes abandoned:" << url.toString(QUrl::RemoveQuery);
                             exchange->finish(std::nullopt);
                         }
                     });
    QObject::connect(reply, &QNetworkReply::finished, reply,
                     [exchange, reply, cap] { exchange->finish(answerOf(*reply, cap)); });
}

} // namespace ravlin
