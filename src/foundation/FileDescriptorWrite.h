#pragma once

#include <QByteArray>

#include <cerrno>
#include <unistd.h>

namespace ravlin {

// Writes all of `bytes` to a file descriptor, going on after an interrupted or short write.
inline bool writeAll(int fd, const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += n;
    }
    return true;
}

} // namespace ravlin
