#include "support/SimWorld.h"

#include "core/discovery/ItemCapture.h"
#include "core/discovery/PermissionManager.h"
#include "platform/WindowServer.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

// Answers every image request with one fixed image and counts the requests.
class FixedImageServer final : public WindowServer {
public:
    QImage image;
    int requests = 0;
    std::optional<PlistArray> windowList(WindowListOption) override { return PlistArray{}; }
    QImage windowImage(std::uint32_t) override
    {
        ++requests;
        return image;
    }
};

class ItemCaptureTest : public ::testing::Test {
protected:
    SimWorld w;
    FixedImageServer server;
    ItemCapture capture{server, w.services().permissions()};
    void answer(int width, int height)
    {
        server.image = QImage(width, height, QImage::Format_ARGB32);
    }
};

} // namespace

TEST_F(ItemCaptureTest, NonPositiveWindowNumbersNeverReachTheWindowServer)
{
    answer(22, 24);
    EXPECT_FALSE(capture.image(0));
    EXPECT_FALSE(capture.image(-5));
    EXPECT_EQ(server.requests, 0);
}

TEST_F(ItemCaptureTest, AOnePixelImageMeansOffScreen)
{
    answer(1, 1);
    EXPECT_FALSE(capture.image(5));
    answer(22, 1);
    EXPECT_FALSE(capture.image(5));
    answer(2, 2);
    ASSERT_TRUE(capture.image(5));
    EXPECT_EQ(capture.image(5)->size(), QSize(2, 2));
}

TEST_F(ItemCaptureTest, NoImageWithoutScreenRecording)
{
    answer(22, 24);
    w.desktop.screenRecording = false;
    EXPECT_FALSE(capture.image(5));
    EXPECT_EQ(server.requests, 0);
}

TEST_F(ItemCaptureTest, AWindowNumberBeyond32BitsGivesNoImageInsteadOfStopping)
{
    answer(22, 24);
    EXPECT_FALSE(capture.image(std::int64_t(1) << 32));
    EXPECT_EQ(server.requests, 0);
}

TEST(PermissionManager, ChecksNeverPromptAndSettingsPagesOpenByURL)
{
    SimWorld w;
    w.desktop.screenRecording = false;
    w.desktop.accessibilityTrusted = false;
    PermissionManager& p = w.services().permissions();
    EXPECT_FALSE(p.hasScreenRecording());
    EXPECT_FALSE(p.hasAccessibility());
    EXPECT_EQ(w.desktop.screenRecordingPrompts + w.desktop.accessibilityPrompts, 0);
    EXPECT_FALSE(p.requestScreenRecording());
    EXPECT_FALSE(p.requestAccessibility());
    EXPECT_EQ(w.desktop.screenRecordingPrompts, 1);
    EXPECT_EQ(w.desktop.accessibilityPrompts, 1);
    // Granted later, seen at the next check.
    w.desktop.accessibilityTrusted = true;
    EXPECT_TRUE(p.hasAccessibility());
    p.openScreenRecordingSettings();
    p.openAccessibilitySettings();
    EXPECT_EQ(w.desktop.opened(), QStringList({PermissionManager::screenRecordingSettingsURL,
                                               PermissionManager::accessibilitySettingsURL}));
}
