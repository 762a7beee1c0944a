#include "ShortcutField.h"

#include "SettingsStyle.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

namespace ravlin {
namespace {

constexpr int fieldWidth = 150;
constexpr int fieldHeight = 23;
constexpr double clearSize = 14;

bool isModifierKey(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Meta ||
           key == Qt::Key_Alt || key == Qt::Key_AltGr || key == Qt::Key_CapsLock;
}

} // namespace

ShortcutField::ShortcutField(Texts texts, QWidget* parent)
    : QWidget(parent), m_texts(std::move(texts)), m_width(fieldWidth)
{
    setFont(SettingsStyle::bodyFont());
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleDescription(m_texts.record);
}

QSize ShortcutField::sizeHint() const
{
    return {m_width, fieldHeight};
}

void ShortcutField::setFieldWidth(int width)
{
    m_width = width;
    updateGeometry();
}

void ShortcutField::setChord(const std::optional<KeyChord>& chord)
{
    m_chord = chord;
    setAccessibleName(shownText());
    update();
}

QString ShortcutField::shownText() const
{
    if (m_recording)
        return m_held.isEmpty() ? m_texts.recording : m_held;
    return m_chord ? m_chord->displayText() : m_texts.none;
}

void ShortcutField::setRecording(bool recording)
{
    m_held.clear();
    update();
    if (recording == m_recording)
        return;
    m_recording = recording;
    if (onRecordingChanged)
        onRecordingChanged(recording);
}

void ShortcutField::startRecording()
{
    setFocus(Qt::OtherFocusReason);
    setRecording(true);
}

void ShortcutField::cancelRecording()
{
    setRecording(false);
}

void ShortcutField::clear()
{
    if (m_chord)
        finish(std::nullopt);
}

void ShortcutField::finish(const std::optional<KeyChord>& chord)
{
    cancelRecording();
    if (onRecorded)
        onRecorded(chord);
}

QRectF ShortcutField::clearButtonRect() const
{
    const double x = layoutDirection() == Qt::RightToLeft ? 6 : width() - 6 - clearSize;
    return {x, (height() - clearSize) / 2, clearSize, clearSize};
}

void ShortcutField::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (!m_recording && m_chord && clearButtonRect().contains(event->position())) {
        clear();
        return;
    }
    if (m_recording)
        cancelRecording();
    else
        startRecording();
}

void ShortcutField::keyPressEvent(QKeyEvent* event)
{
    if (!m_recording) {
        if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return) {
            startRecording();
            return;
        }
        QWidget::keyPressEvent(event);
        return;
    }
    const int key = event->key();
    const auto mods = event->modifiers() & ~Qt::KeypadModifier;
    if (isModifierKey(key)) {
        KeyChord held{QString(), unsigned(KeyChord::fromQt(Qt::Key_A, int(mods))->modifiers)};
        m_held = held.displayText();
        update();
        return;
    }
    if (mods == Qt::NoModifier && key == Qt::Key_Escape) {
        cancelRecording();
        return;
    }
    if (mods == Qt::NoModifier && (key == Qt::Key_Backspace || key == Qt::Key_Delete)) {
        finish(std::nullopt);
        return;
    }
    if (const std::optional<KeyChord> chord = KeyChord::fromQt(key, int(mods)))
        finish(chord);
}

void ShortcutField::keyReleaseEvent(QKeyEvent* event)
{
    if (m_recording && isModifierKey(event->key())) {
        m_held.clear();
        update();
    }
}

void ShortcutField::focusOutEvent(QFocusEvent*)
{
    cancelRecording();
}

void ShortcutField::hideEvent(QHideEvent*)
{
    cancelRecording();
}

// While recording, Tab is a key like any other.
bool ShortcutField::focusNextPrevChild(bool next)
{
    return m_recording ? false : QWidget::focusNextPrevChild(next);
}

void ShortcutField::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -1.5);
    p.setBrush(m_recording ? QColor(232, 241, 255) : QColor(255, 255, 255));
    p.setPen(QPen(m_recording ? SettingsStyle::accent() : QColor(0, 0, 0, 34), 1));
    p.drawRoundedRect(face, 5.5, 5.5);
    p.setFont(font());
    p.setPen(m_chord || m_recording ? SettingsStyle::primaryText() : SettingsStyle::tertiaryText());
    const QRectF text = face.adjusted(8, 0, -8 - clearSize, 0);
    p.drawText(text, Qt::AlignCenter,
               p.fontMetrics().elidedText(shownText(), Qt::ElideRight, int(text.width())));
    if (!m_recording && m_chord) {
        // The clear button: a grey disc with a cross, as the system's search fields have.
        const QRectF c = clearButtonRect();
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 60));
        p.drawEllipse(c);
        p.setPen(QPen(Qt::white, 1.4, Qt::SolidLine, Qt::RoundCap));
        const QRectF x = c.adjusted(4.2, 4.2, -4.2, -4.2);
        p.drawLine(x.topLeft(), x.bottomRight());
        p.drawLine(x.topRight(), x.bottomLeft());
    }
    SettingsStyle::paintFocusRing(p, *this, face.adjusted(1, 1, -1, -1), 4.5);
}

} // namespace ravlin
