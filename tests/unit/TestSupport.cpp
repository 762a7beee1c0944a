#include "TestSupport.h"

#include <QCoreApplication>

namespace ravlin::test {
namespace {
LogCapture* current = nullptr;
} // namespace

LogCapture::LogCapture() : m_previous(qInstallMessageHandler(&LogCapture::handler))
{
    current = this;
}

LogCapture::~LogCapture()
{
    qInstallMessageHandler(m_previous);
    current = nullptr;
}

void LogCapture::handler(QtMsgType, const QMessageLogContext&, const QString& message)
{
    if (current)
        current->m_lines.append(message);
}

int LogCapture::count(const QString& prefix) const
{
    int n = 0;
    for (const QString& line : m_lines)
        n += line.startsWith(prefix) ? 1 : 0;
    return n;
}

QString resourcesDir()
{
    return QString::fromUtf8(RAVLIN_SOURCE_RESOURCES);
}

} // namespace ravlin::test
