#pragma once

#include <QString>

namespace ravlin {

// Where the self-tests leave their reports. Each report replaces the previous
// one whole; a report that cannot be written is logged and otherwise ignored.
// A report never goes through a symbolic link nor into another user's file.
class DiagnosticLogs {
public:
    static inline const QString defaultDirectory = QStringLiteral("/tmp");
    static inline const QString captureLog = QStringLiteral("ravlin_capture_all.log");
    static inline const QString moveLog = QStringLiteral("ravlin_move.log");
    static inline const QString hideLog = QStringLiteral("ravlin_hide.log");

    explicit DiagnosticLogs(QString directory = defaultDirectory);

    QString directory() const { return m_directory; }
    // An empty directory means the default one.
    void setDirectory(const QString& directory);
    QString path(const QString& fileName) const;

    bool write(const QString& fileName, const QString& text) const;

private:
    QString m_directory;
};

} // namespace ravlin
