#include "UrlOpenFilter.h"

#include "core/app/UrlCommand.h"

#include <QFileOpenEvent>

namespace ravlin {

bool UrlOpenFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::FileOpen)
        return QObject::eventFilter(watched, event);
    const QUrl url = static_cast<QFileOpenEvent*>(event)->url();
    if (url.scheme().compare(UrlCommand::scheme, Qt::CaseInsensitive) != 0)
        return QObject::eventFilter(watched, event);
    if (m_handler)
        m_handler(url.toString(QUrl::FullyEncoded));
    return true;
}

} // namespace ravlin
