#include "ui/settings/TextLabel.h"

#include <QWidget>

#include <gtest/gtest.h>

using namespace ravlin;

TEST(TextLabel, EachLineRunsInTheWindowsDirectionWhateverItsFirstLetters)
{
    QWidget window;
    window.setLayoutDirection(Qt::RightToLeft);
    const QString text = QStringLiteral("Ravlin יכול\nmacOS מצייר");
    auto* label = new TextLabel(text, nullptr);
    label->setWordWrap(true);
    label->setParent(&window);
    EXPECT_EQ(label->plainText(), text);
    const QStringList lines = label->text().split(u'\n');
    ASSERT_EQ(lines.size(), 2);
    for (const QString& line : lines)
        EXPECT_EQ(line.front(), QChar(0x200F));
    EXPECT_TRUE(label->text().isRightToLeft());

    window.setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(label->text().front(), QChar(0x200E));
    EXPECT_EQ(label->plainText(), text);
}

TEST(TextLabel, ANameKeepsItsOwnDirectionButStaysAtTheLeadingEdge)
{
    QWidget window;
    window.setLayoutDirection(Qt::RightToLeft);
    auto* label = new TextLabel(QStringLiteral("© The Qt Company Ltd."), &window);
    label->setFollowsWindowDirection(false);
    EXPECT_EQ(label->text(), QStringLiteral("© The Qt Company Ltd."));
    EXPECT_EQ(label->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight | Qt::AlignAbsolute);
}
