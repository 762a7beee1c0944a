#include "BoundedFileReader.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ravlin {
namespace {

std::optional<QByteArray> refuse(QString* why, const QString& reason)
{
    if (why)
        *why = reason;
    return std::nullopt;
}

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

// Closes the descriptor on every way out.
struct Descriptor {
    int fd;
    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }
};

} // namespace

std::optional<QByteArray> BoundedFileReader::read(const QString& path, QString* why) const
{
    // Non-blocking, so that opening a named pipe nobody writes to returns at once; the type is
    // then checked on the open file itself, so nothing can be swapped in between.
    const Descriptor file{::open(QFile::encodeName(path).constData(),
                                 O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)};
    if (file.fd < 0)
        return refuse(why, systemError());
    struct stat info {};
    if (::fstat(file.fd, &info) != 0)
        return refuse(why, systemError());
    if (S_ISDIR(info.st_mode))
        return refuse(why, QStringLiteral("it is a folder"));
    if (!S_ISREG(info.st_mode))
        return refuse(why, QStringLiteral("it is not a regular file"));
    QByteArray bytes;
    char buffer[64 * 1024];
    while (bytes.size() <= m_limit) {
        const qint64 wanted = std::min<qint64>(qint64(sizeof buffer), m_limit + 1 - bytes.size());
        const ssize_t n = ::read(file.fd, buffer, size_t(wanted));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return refuse(why, systemError());
        if (n == 0)
            return bytes;
        bytes.append(buffer, qsizetype(n));
    }
    return refuse(why, QStringLiteral("it is larger than %1 bytes").arg(m_limit));
}

} // namespace ravlin
