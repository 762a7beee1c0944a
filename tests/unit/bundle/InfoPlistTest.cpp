// The bundle's Info.plist as the normal build generates it from its template.
#include "core/app/UrlCommand.h"
#include "platform/linux/PlistCodec.h"
#include "platform/sim/SimDesktop.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

QByteArray infoPlistBytes()
{
    QFile file(QStringLiteral(RAVLIN_INFO_PLIST));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class InfoPlist : public ::testing::Test {
protected:
    void SetUp() override
    {
        const std::optional<PlistValue> parsed = PlistCodec::parse(infoPlistBytes());
        ASSERT_TRUE(parsed && parsed->isDict()) << "not a property list: " RAVLIN_INFO_PLIST;
        plist = *parsed;
    }
    QString text(const char* key) const { return plist[QString::fromLatin1(key)].asString().value_or(QString()); }

    PlistValue plist;
};

} // namespace

TEST_F(InfoPlist, NamesTheAgentBundleItsExecutableAndItsVersions)
{
    EXPECT_EQ(text("CFBundleIdentifier"), SimDesktop::ownBundleId);
    EXPECT_EQ(text("CFBundleExecutable"), QStringLiteral("Ravlin"));
    EXPECT_EQ(text("CFBundlePackageType"), QStringLiteral("APPL"));
    EXPECT_EQ(plist[QStringLiteral("LSUIElement")].asBool(), true);
    // The version the About tab shows, and a build number that only grows.
    EXPECT_EQ(text("CFBundleShortVersionString"), QStringLiteral(RAVLIN_VERSION));
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\d+\\.\\d+\\.\\d+(-[a-z]+\\.\\d+)?$"))
                    .match(text("CFBundleShortVersionString"))
                    .hasMatch());
    EXPECT_EQ(text("CFBundleVersion"), QStringLiteral(RAVLIN_TEST_BUILD_NUMBER));
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^[1-9]\\d*$"))
                    .match(text("CFBundleVersion"))
                    .hasMatch());
}

TEST_F(InfoPlist, AsksForTheDeploymentTargetAndExplainsEveryPermissionPrompt)
{
    EXPECT_EQ(text("LSMinimumSystemVersion"), QStringLiteral(RAVLIN_TEST_DEPLOYMENT_TARGET));
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^1[3-9]\\.\\d+$"))
                    .match(text("LSMinimumSystemVersion"))
                    .hasMatch());
    // Without both, a location request fails without a prompt.
    for (const char* key : {"NSLocationUsageDescription", "NSLocationWhenInUseUsageDescription"})
        EXPECT_TRUE(text(key).contains(QStringLiteral("Ravlin"))) << key;
}

TEST_F(InfoPlist, GivesSparkleItsFeedAndKey)
{
    const QString feed = text("SUFeedURL");
    EXPECT_TRUE(feed.startsWith(QStringLiteral("https://")) && feed.endsWith(QStringLiteral(".xml")))
        << feed.toStdString();
    ASSERT_TRUE(plist[QStringLiteral("SUPublicEDKey")].asString().has_value());
    // Development builds carry no key; a release's key is 32 bytes.
    const QString key = text("SUPublicEDKey");
    if (!key.isEmpty()) {
        EXPECT_EQ(QByteArray::fromBase64(key.toLatin1()).size(), 32);
    }
    EXPECT_TRUE(plist[QStringLiteral("SUEnableAutomaticChecks")].asBool().has_value());
    EXPECT_EQ(plist[QStringLiteral("SUScheduledCheckInterval")].asInteger(), 86400);
}

// Launchers, Shortcuts and scripts reach Ravlin through ravlin:// URLs: the system hands them
// over only to an application that declares the scheme.
TEST_F(InfoPlist, DeclaresRavlinsURLSchemeForAutomation)
{
    const PlistArray* types = plist[QStringLiteral("CFBundleURLTypes")].asArray();
    ASSERT_TRUE(types);
    ASSERT_EQ(types->size(), 1u);
    const PlistValue& type = types->front();
    EXPECT_EQ(type[QStringLiteral("CFBundleURLName")].asString(), SimDesktop::ownBundleId);
    EXPECT_EQ(type[QStringLiteral("CFBundleTypeRole")].asString(), QStringLiteral("Viewer"));
    const PlistArray* schemes = type[QStringLiteral("CFBundleURLSchemes")].asArray();
    ASSERT_TRUE(schemes);
    ASSERT_EQ(schemes->size(), 1u);
    EXPECT_EQ(schemes->front().asString(), UrlCommand::scheme);
}

TEST_F(InfoPlist, DeclaresOnlyWellFormedURLSchemesAndNoPlaceholderIsLeft)
{
    if (const PlistArray* types = plist[QStringLiteral("CFBundleURLTypes")].asArray()) {
        for (const PlistValue& type : *types) {
            const PlistArray* schemes = type[QStringLiteral("CFBundleURLSchemes")].asArray();
            ASSERT_TRUE(schemes && !schemes->empty());
            for (const PlistValue& scheme : *schemes)
                EXPECT_TRUE(QRegularExpression(QStringLiteral("^[a-z][a-z0-9+.-]*$"))
                                .match(scheme.asString().value_or(QString()))
                                .hasMatch());
        }
    }
    EXPECT_FALSE(QRegularExpression(QStringLiteral("@[A-Z_]+@"))
                     .match(QString::fromUtf8(infoPlistBytes()))
                     .hasMatch());
}
