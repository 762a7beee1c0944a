#include "core/bar/ArrangeGuide.h"
#include "ui/ArrangeView.h"

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
    ArrangeView view;
    int done = 0;
    view.onDone = [&] { ++done; };
    EXPECT_EQ(view.sizeHint().width(), 340);
    EXPECT_LE(view.minimumSizeHint().width(), 340); // the guide never grows wider
    EXPECT_GT(view.sizeHint().height(), 100);
    EXPECT_LT(view.sizeHint().height(), 220);
    view.doneButton()->click();
    EXPECT_EQ(done, 1);
    EXPECT_EQ(view.doneButton()->text(), QStringLiteral("Fertig"));
}

TEST(ArrangeView, RendersForALook)
{
    const QByteArray out = qgetenv("RAVLIN_SHOT_DIR");
    if (out.isEmpty())
        GTEST_SKIP() << "set RAVLIN_SHOT_DIR to write a picture";
    ArrangeView view;
    view.resize(view.sizeHint());
    QImage image(view.size() * 2, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(QColor(90, 110, 140));
    view.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    image.save(QString::fromLocal8Bit(out) + QStringLiteral("/arrange.png"));
}
