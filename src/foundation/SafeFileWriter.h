#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace ravlin {

// Writes a file to a place the user chose (an export) without ever writing anywhere else:
// the bytes go to a fresh file beside the target, which is then renamed over it. What stands
// at the target may only be a regular file (a symbolic link is never followed, a dangling one
// never creates a file elsewhere; a pipe or a device is never replaced), and never one of the
// protected files (the program's own settings), however it is reached.
class SafeFileWriter {
public:
    explicit SafeFileWriter(QStringList protectedPaths = {})
        : m_protected(std::move(protectedPaths))
    {
    }

    // False, with the reason in `why`, when nothing was written.
    bool write(const QString& path, const QByteArray& bytes, QString* why = nullptr) const;

private:
    QString refusal(const QByteArray& target) const;

    QStringList m_protected;
};

} // namespace ravlin
