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
    if (text.isEmpty()) {
        setText(text);
        return;
    }
    setText((layoutDirection() == Qt::RightToLeft ? rightToLeftMark : leftToRightMark) + text);
}

void TextLabel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        setPlainText(m_text);
    QLabel::changeEvent(event);
}

} // namespace ravlin
