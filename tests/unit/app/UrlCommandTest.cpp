// The URL scheme's requests, read strictly: what each URL asks for, and what is refused.
#include "core/app/UrlCommand.h"
#include "macos/UrlOpenFilter.h"

#include <QCoreApplication>
#include <QFileOpenEvent>

#include <gtest/gtest.h>

using namespace ravlin;
using A = UrlCommand::Action;

namespace {

std::optional<UrlCommand> parse(const char* url)
{
    return UrlCommand::parse(QString::fromUtf8(url));
}

} // namespace

TEST(UrlCommand, ReadsEveryRequestOfTheScheme)
{
    struct Case {
        const char* url;
        UrlCommand command;
    };
    const Case cases[] = {
        {"ravlin://panel", {A::OpenPanel, {}}},
        {"ravlin://panel/open", {A::OpenPanel, {}}},
        {"RAVLIN://Panel/close", {A::ClosePanel, {}}},
        {"ravlin://panel/toggle/", {A::TogglePanel, {}}},
        {"ravlin://reveal", {A::Reveal, {}}},
        {"ravlin://hide", {A::Hide, {}}},
        {"ravlin://layout/Work%20Day", {A::SwitchLayout, QStringLiteral("Work Day")}},
        // An encoded slash belongs to the name; so do letters of any script.
        {"ravlin://layout/Home%2FOffice", {A::SwitchLayout, QStringLiteral("Home/Office")}},
        {"ravlin://layout/%D7%A2%D7%91%D7%95%D7%93%D7%94",
         {A::SwitchLayout, QStringLiteral("עבודה")}},
        {"ravlin://item/n:Chat%20Status/open", {A::OpenItem, QStringLiteral("n:Chat Status")}},
        {"ravlin://item/Tunnel/open", {A::OpenItem, QStringLiteral("Tunnel")}},
        {"ravlin://search?q=wi%20fi", {A::Search, QStringLiteral("wi fi")}},
        {"ravlin://search?q=wi+fi", {A::Search, QStringLiteral("wi fi")}},
        {"ravlin://search?q=c%2B%2B", {A::Search, QStringLiteral("c++")}},
        {"ravlin://search?q=", {A::Search, QString()}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.url);
        QString why;
        const std::optional<UrlCommand> command = UrlCommand::parse(QString::fromUtf8(c.url), &why);
        ASSERT_TRUE(command) << why.toStdString();
        EXPECT_EQ(*command, c.command);
    }
}

TEST(UrlCommand, RefusesAnythingElseSayingWhy)
{
    for (const char* url : {"",
                            "not a url",
                            "https://example.com/panel",
                            "ravlin:panel",
                            "ravlin://",
                            "ravlin://settings",
                            "ravlin://settings/reset",
                            "ravlin://panel/explode",
                            "ravlin://panel/open/now",
                            "ravlin://reveal/all",
                            "ravlin://reveal?all=1",
                            "ravlin://hide#now",
                            "ravlin://layout",
                            "ravlin://layout/",
                            "ravlin://layout/%20",
                            "ravlin://layout/a/b",
                            "ravlin://item/Chat",
                            "ravlin://item/Chat/close",
                            "ravlin://item//open",
                            "ravlin://search",
                            "ravlin://search?text=a",
                            "ravlin://search?q=a&q=b",
                            "ravlin://search/now?q=a",
                            "ravlin://user@panel",
                            "ravlin://panel:8080"}) {
        SCOPED_TRACE(url);
        QString why;
        EXPECT_FALSE(UrlCommand::parse(QString::fromUtf8(url), &why));
        EXPECT_FALSE(why.isEmpty());
    }
    // Hostile texts: percent-encoded controls in a name or a search, in the command itself.
    for (const char* url :
         {"ravlin://item/Chat%0A2026-01-01%20forged%20line/open", "ravlin://layout/Work%00",
          "ravlin://search?q=wi%09fi", "ravlin://search?q=%1B%5B2J", "ravlin://pa%0Anel",
          "ravlin://item/%E2%80%AE/open%0A"}) {
        SCOPED_TRACE(url);
        QString why;
        EXPECT_FALSE(UrlCommand::parse(QString::fromUtf8(url), &why));
        EXPECT_FALSE(why.contains(u'\n'));
    }
    // A name is only a name: climbing out of a folder means nothing to a layout or an item.
    EXPECT_EQ(parse("ravlin://layout/..%2F..%2Fetc"),
              (UrlCommand{A::SwitchLayout, QStringLiteral("../../etc")}));
    EXPECT_EQ(parse("ravlin://item/../open"), (UrlCommand{A::OpenItem, QStringLiteral("..")}));
    // A flood is not read at all.
    QString why;
    const QString huge = QStringLiteral("ravlin://search?q=") + QString(5000, u'a');
    EXPECT_FALSE(UrlCommand::parse(huge, &why));
    EXPECT_TRUE(why.contains(QStringLiteral("longer")));
}

// The system's "get URL" event, as Qt hands it on: a file-open event on the application.
TEST(UrlOpenFilter, PassesOnRavlinsURLsAndLeavesTheRestAlone)
{
    QStringList heard;
    UrlOpenFilter filter([&](const QString& url) { heard << url; });
    QObject application;
    application.installEventFilter(&filter);
    QFileOpenEvent ours(QUrl(QStringLiteral("ravlin://layout/Work%20Day")));
    QFileOpenEvent file(QUrl(QStringLiteral("file:///tmp/layout.json")));
    QEvent other(QEvent::User);
    QCoreApplication::sendEvent(&application, &ours);
    QCoreApplication::sendEvent(&application, &file);
    QCoreApplication::sendEvent(&application, &other);
    EXPECT_EQ(heard, QStringList{QStringLiteral("ravlin://layout/Work%20Day")});
}
