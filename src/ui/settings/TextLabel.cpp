#include "TextLabel.h"

#include <QEvent>

namespace ravlin {
namespace {

constexpr QChar rightToLeftMark(0x200F);
constexpr QChar leftToRightMark(0x200E);

} // namespace

TextLabel::TextLabel(const QString& text, QWidget* parent) : QLabel(parent)
{
    setPlainText(text);
}

QString TextLabel::plainText() const
{
    return m_text;
}

void TextLabel::setPlainText(const QString& text)
{
    m_text = text;
    if (!m_followsWindow) {
        // Its own direction inside, but still flush with the window's leading edge.
        if (!(alignment() & Qt::AlignHCenter)) {
            const Qt::Alignment edge =
                layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
            setAlignment((alignment() & Qt::AlignVertical_Mask) | edge | Qt::AlignAbsolute);
        }
        setText(text);
        return;
    }
    if (text.isEmpty()) {
        setText(text);
        return;
    }
    // Every line is a paragraph of its own and needs its own mark.
    const QChar mark = layoutDirection() == Qt::RightToLeft ? rightToLeftMark : leftToRightMark;
    QString marked = mark + text;
    marked.replace(u'\n', QString(u'\n') + mark);
    setText(marked);
}

void TextLabel::setFollowsWindowDirection(bool follows)
{
    m_followsWindow = follows;
    setPlainText(m_text);
}

void TextLabel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        setPlainText(m_text);
    QLabel::changeEvent(event);
}

} // namespace ravlin
