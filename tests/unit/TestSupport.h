#pragma once

#include <QDir>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <ostream>

// Readable QString values in test failure messages.
inline void PrintTo(const QString& s, std::ostream* os)
{
    *os << '"' << s.toStdString() << '"';
}

namespace ravlin::test {

// Collects the log lines written while it lives.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    const QStringList& lines() const { return m_lines; }
    int count(const QString& prefix) const;

private:
    static void handler(QtMsgType, const QMessageLogContext&, const QString& message);
    QtMessageHandler m_previous;
    QStringList m_lines;
};

// The built interface texts beside the test executable.
QString resourcesDir();

} // namespace ravlin::test
