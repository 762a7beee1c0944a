#include "support/PanelWorld.h"

#include "core/bar/ArrangeGuide.h"
#include "core/settings/LanguageManager.h"
#include "ui/ArrangeView.h"

#include <QLabel>

#include <QPushButton>

#include <gtest/gtest.h>

using namespace ravlin;

TEST(ArrangeGuide, StaysTwelvePointsInsideTheScreenAndHangsEightBelowTheAnchor)
{
    const QRectF screen(0, 0, 1440, 900);
    const QSizeF size(340, 150);
    EXPECT_EQ(arrangeGuideOrigin(QRectF(1400, 876, 24, 24), screen, size),
              QPointF(1440 - 340 - 12, 876 - 150 - 8));
    EXPECT_EQ(arrangeGuideOrigin(QRectF(10, 876, 24, 24), screen, size).x(), 12);
    EXPECT_EQ(arrangeGuideOrigin(QRectF(700, 876, 24, 24), screen, size).x(), 712 - 170);
    const QRectF second(1440, 0, 1920, 1080);
    EXPECT_EQ(arrangeGuideOrigin(QRectF(1450, 1056, 24, 24), second, size).x(), 1452);
}

TEST(ArrangeView, IsAsWideAsTheGuideAndItsButtonSaysDone)
{
    test::PanelWorld world;
    ArrangeView view(world.language());
    int done = 0;
    view.onDone = [&] { ++done; };
    EXPECT_EQ(view.sizeHint().width(), 340);
    EXPECT_LE(view.minimumSizeHint().width(), 340); // the guide never grows wider
    EXPECT_GT(view.sizeHint().height(), 100);
    EXPECT_LT(view.sizeHint().height(), 220);
    view.doneButton()->click();
    EXPECT_EQ(done, 1);
    EXPECT_EQ(view.doneButton()->text(), QStringLiteral("Done"));
}

TEST(ArrangeView, SpeaksTheInterfaceLanguageAndReadsItsWay)
{
    test::PanelWorld world;
    auto texts = [](const ArrangeView& view) {
        QStringList all;
        for (const QLabel* label : view.findChildren<QLabel*>())
            all << label->text();
        return all.join(u'|');
    };
    world.language().apply(QStringLiteral("de"));
    ArrangeView german(world.language());
    EXPECT_EQ(german.doneButton()->text(), QStringLiteral("Fertig"));
    EXPECT_TRUE(texts(german).contains(QStringLiteral("Menüleiste anordnen")));
    world.language().apply(QStringLiteral("ja"));
    ArrangeView japanese(world.language());
    EXPECT_EQ(japanese.doneButton()->text(), QStringLiteral("完了"));
    EXPECT_FALSE(texts(japanese).contains(QStringLiteral("Menüleiste")));
    EXPECT_EQ(japanese.layoutDirection(), Qt::LeftToRight);
    world.language().apply(QStringLiteral("he"));
    ArrangeView hebrew(world.language());
    EXPECT_EQ(hebrew.layoutDirection(), Qt::RightToLeft);
    EXPECT_TRUE(texts(hebrew).contains(QStringLiteral("סידור שורת התפריטים")));
}

TEST(ArrangeView, RendersForALook)
{
    const QByteArray out = qgetenv("RAVLIN_SHOT_DIR");
    if (out.isEmpty())
        GTEST_SKIP() << "set RAVLIN_SHOT_DIR to write a picture";
    test::PanelWorld world;
    ArrangeView view(world.language());
    view.resize(view.sizeHint());
    QImage image(view.size() * 2, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(QColor(90, 110, 140));
    view.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    image.save(QString::fromLocal8Bit(out) + QStringLiteral("/arrange.png"));
}
