#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ravlin {

// Reads a file the user picked, trusting nothing it says about itself. The size a file
// reports is 0 for devices, pipes and most of /proc, so the reading stops at the limit
// whatever the size says; and a file that is not a regular one (a pipe that would block the
// open, a device that never ends) is refused before a byte is read.
class BoundedFileReader {
public:
    explicit BoundedFileReader(qint64 limit) : m_limit(limit) {}

    // The whole file, or absent with the reason in `why`.
    std::optional<QByteArray> read(const QString& path, QString* why = nullptr) const;

private:
    qint64 m_limit;
};

} // namespace ravlin
