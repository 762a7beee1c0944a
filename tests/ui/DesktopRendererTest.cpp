// What the simulated desktop draws of an open status menu: key equivalents as the Mac
// writes them, and a menu mirrored for a language read from right to left.
#include "ui/DesktopRenderer.h"

#include <QImage>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

DesktopScene menuScene(bool rightToLeft, const QString& shortcut)
{
    DesktopScene scene;
    scene.displays.push_back({QRectF(0, 0, 600, 300), 24, 0});
    DesktopScene::Menu menu;
    menu.origin = QPointF(100, 40);
    menu.rightToLeft = rightToLeft;
    menu.rows.push_back({QStringLiteral("Quit"), false, true, false, false, shortcut});
    scene.menusOpen.push_back(menu);
    return scene;
}

// How many dark pixels (text) stand in the columns [from, to) of the menu's first row.
int inkBetween(const QImage& image, double from, double to)
{
    int ink = 0;
    for (int x = int(from); x < int(to); ++x)
        for (int y = 46; y < 66; ++y)
            ink += qGray(image.pixel(x, y)) < 190 ? 1 : 0;
    return ink;
}

} // namespace

TEST(DesktopRenderer, DrawsKeyEquivalentsAtTheTrailingEndAndMirrorsRightToLeft)
{
    DesktopRenderer renderer;
    const DesktopScene plain = menuScene(false, QString());
    const double width = DesktopRenderer::menuSize(plain.menusOpen[0]).width();
    const double left = 100, right = 100 + width, third = width / 3;

    const QImage without = renderer.render(plain, 1.0);
    const QImage with = renderer.render(menuScene(false, QStringLiteral("⌘Q")), 1.0);
    EXPECT_EQ(inkBetween(without, right - third, right), 0);
    EXPECT_GT(inkBetween(with, right - third, right), 10);
    EXPECT_GT(inkBetween(with, left, left + third), 10); // check mark and title

    const QImage mirrored = renderer.render(menuScene(true, QStringLiteral("⌘Q")), 1.0);
    const double mirroredWidth =
        DesktopRenderer::menuSize(menuScene(true, QStringLiteral("⌘Q")).menusOpen[0]).width();
    // The title and check mark stand at the right, the key equivalent at the left.
    EXPECT_GT(inkBetween(mirrored, 100 + mirroredWidth - 40, 100 + mirroredWidth), 10);
    EXPECT_GT(inkBetween(mirrored, left, left + 40), 10);
    EXPECT_EQ(inkBetween(mirrored, left + 60, left + mirroredWidth - 100), 0);
}
