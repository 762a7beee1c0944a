#include "UrlCommand.h"

#include <QStringList>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>

namespace ravlin {
namespace {

std::optional<UrlCommand> refuse(QString* why, const QString& reason)
{
    if (why)
        *why = reason;
    return std::nullopt;
}

// The path's segments, each decoded on its own, so that an encoded "/" stays in its name.
QStringList segments(const QUrl& url)
{
    QStringList parts;
    for (const QString& part : url.path(QUrl::FullyEncoded).split(u'/', Qt::SkipEmptyParts))
        parts.append(QUrl::fromPercentEncoding(part.toUtf8()));
    return parts;
}

std::optional<UrlCommand> panel(const QStringList& path, QString* why)
{
    using A = UrlCommand::Action;
    if (path.isEmpty() || path == QStringList{QStringLiteral("open")})
        return UrlCommand{A::OpenPanel, {}};
    if (path == QStringList{QStringLiteral("close")})
        return UrlCommand{A::ClosePanel, {}};
    if (path == QStringList{QStringLiteral("toggle")})
        return UrlCommand{A::TogglePanel, {}};
    return refuse(why, QStringLiteral("the panel can be opened, closed or toggled"));
}

// A name or a search is typed by a person: a control character in one (a line break, a
// tab, a NUL sent percent-encoded) names nothing Ravlin has and is not read.
bool holdsControls(const QString& text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.category() == QChar::Other_Control; });
}

std::optional<UrlCommand> checked(UrlCommand command, QString* why)
{
    if (holdsControls(command.argument))
        return refuse(why, QStringLiteral("its name or text holds control characters"));
    return command;
}

} // namespace

std::optional<UrlCommand> UrlCommand::parse(const QString& text, QString* why)
{
    using A = Action;
    if (text.size() > maxLength)
        return refuse(why, QStringLiteral("longer than %1 characters").arg(maxLength));
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    if (!url.isValid())
        return refuse(why, QStringLiteral("not a URL"));
    if (url.scheme().compare(scheme, Qt::CaseInsensitive) != 0)
        return refuse(why, QStringLiteral("not a %1: URL").arg(scheme));
    if (!url.userInfo().isEmpty() || url.port() != -1 || url.hasFragment())
        return refuse(why, QStringLiteral("it holds more than a command"));
    const QString command = url.host().toLower();
    const QStringList path = segments(url);
    const bool query = url.hasQuery();
    if (command == u"search") {
        const QUrlQuery items(url);
        if (!path.isEmpty() || !items.hasQueryItem(QStringLiteral("q")) ||
            items.queryItems().size() != 1)
            return refuse(why, QStringLiteral("a search takes only ?q=TEXT"));
        // Launchers encode a blank of a search as "+", as forms do; a real plus comes as %2B.
        QString text = items.queryItemValue(QStringLiteral("q"), QUrl::FullyEncoded);
        text.replace(u'+', u' ');
        return checked({A::Search, QUrl::fromPercentEncoding(text.toUtf8())}, why);
    }
    if (query)
        return refuse(why, QStringLiteral("only a search takes a query"));
    if (command == u"panel")
        return panel(path, why);
    if (command == u"reveal" || command == u"hide") {
        if (!path.isEmpty())
            return refuse(why, QStringLiteral("%1 takes nothing after it").arg(command));
        return UrlCommand{command == u"reveal" ? A::Reveal : A::Hide, {}};
    }
    if (command == u"layout") {
        if (path.size() != 1 || path.front().trimmed().isEmpty())
            return refuse(why, QStringLiteral("a layout is named by one part: layout/NAME"));
        return checked({A::SwitchLayout, path.front()}, why);
    }
    if (command == u"item") {
        if (path.size() != 2 || path.back() != u"open" || path.front().trimmed().isEmpty())
            return refuse(why, QStringLiteral("an item is opened by item/KEY-OR-NAME/open"));
        return checked({A::OpenItem, path.front()}, why);
    }
    return refuse(why, QStringLiteral("no command \"%1\"").arg(command.left(40)));
}

} // namespace ravlin
