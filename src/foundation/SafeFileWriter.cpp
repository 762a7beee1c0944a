#include "SafeFileWriter.h"

#include "FileDescriptorWrite.h"

#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ravlin {
namespace {

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool fail(QString* why, const QString& reason)
{
    if (why)
        *why = reason;
    return false;
}

bool sameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

// Empty when the target may be written.
QString SafeFileWriter::refusal(const QByteArray& target) const
{
    struct stat info {};
    if (::lstat(target.constData(), &info) != 0)
        return errno == ENOENT ? QString() : systemError();
    if (S_ISLNK(info.st_mode))
        return QStringLiteral("it is a symbolic link");
    if (!S_ISREG(info.st_mode))
        return QStringLiteral("it is not a regular file");
    for (const QString& path : m_protected) {
        struct stat other {};
        if (::stat(QFile::encodeName(path).constData(), &other) == 0 && sameFile(info, other))
            return QStringLiteral("it is Ravlin's own settings file");
    }
    return QString();
}

bool SafeFileWriter::write(const QString& path, const QByteArray& bytes, QString* why) const
{
    const QByteArray target = QFile::encodeName(path);
    if (target.isEmpty())
        return fail(why, QStringLiteral("no file was named"));
    if (const QString reason = refusal(target); !reason.isEmpty())
        return fail(why, reason);
    QByteArray temporary = target + ".XXXXXX";
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0)
        return fail(why, systemError());
    // mkstemp makes the file private; an exported file is for reading elsewhere.
    const bool written = ::fchmod(fd, 0644) == 0 && writeAll(fd, bytes) && ::fsync(fd) == 0;
    const QString writeError = written ? QString() : systemError();
    ::close(fd);
    // Checked again right before the rename; the rename itself replaces whatever name stands
    // there (a link included) rather than writing through it.
    QString reason = written ? refusal(target) : writeError;
    if (reason.isEmpty() && ::rename(temporary.constData(), target.constData()) != 0)
        reason = systemError();
    if (!reason.isEmpty()) {
        ::unlink(temporary.constData());
        return fail(why, reason);
    }
    return true;
}

} // namespace ravlin
