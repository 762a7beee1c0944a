#pragma once

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <optional>

namespace ravlin {

// Fetches a URL. The body arrives whatever the HTTP status says; a failed
// exchange (no connection, time-out, an answer too large) gives nothing.
class HttpClient {
public:
    // Called once, on the main thread; possibly before get returns.
    using Completion = std::function<void(std::optional<QByteArray> body)>;

    virtual ~HttpClient() = default;
    virtual void get(const QUrl& url, Completion completion) = 0;
};

} // namespace ravlin
