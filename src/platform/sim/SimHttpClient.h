#pragma once

#include "platform/HttpClient.h"

#include <QList>

namespace ravlin {

class Scheduler;

// Answers every request with the body a script set, or fails it; records the
// URLs asked for. Answers come on the main queue.
class SimHttpClient final : public HttpClient {
public:
    explicit SimHttpClient(Scheduler& scheduler) : m_scheduler(scheduler) {}

    void get(const QUrl& url, Completion completion) override;

    // Absent: every request fails.
    void setAnswer(std::optional<QByteArray> body) { m_answer = std::move(body); }
    const QList<QUrl>& requests() const { return m_requests; }

private:
    Scheduler& m_scheduler;
    std::optional<QByteArray> m_answer;
    QList<QUrl> m_requests;
};

} // namespace ravlin
