#include "SimHttpClient.h"

#include "foundation/Scheduler.h"

namespace ravlin {

void SimHttpClient::get(const QUrl& url, Completion completion)
{
    m_requests.append(url);
    m_scheduler.async(
        [completion = std::move(completion), answer = m_answer] { completion(answer); });
}

} // namespace ravlin
