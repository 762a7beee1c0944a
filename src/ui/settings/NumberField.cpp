#include "NumberField.h"

#include "SettingsStyle.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QSpinBox>

namespace ravlin {
namespace {

// The two little arrows beside the field; the upper half steps up, the lower down.
class Stepper : public QWidget {
public:
    explicit Stepper(QSpinBox* spin, QWidget* parent) : QWidget(parent), m_spin(spin)
    {
        setFixedSize(13, 22);
        setCursor(Qt::PointingHandCursor);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        if (event->position().y() < height() / 2.0)
            m_spin->stepUp();
        else
            m_spin->stepDown();
    }

    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        p.setPen(QPen(QColor(0, 0, 0, 34), 1));
        p.setBrush(QColor(255, 255, 255));
        p.drawRoundedRect(face, 4, 4);
        p.setPen(QPen(QColor(0, 0, 0, 16), 1));
        p.drawLine(QPointF(face.left() + 2, face.center().y()),
                   QPointF(face.right() - 2, face.center().y()));
        QColor ink = isEnabled() ? QColor(0, 0, 0, 170) : QColor(0, 0, 0, 60);
        p.setPen(QPen(ink, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const double cx = face.center().x();
        const double up = face.top() + face.height() * 0.3, down = face.top() + face.height() * 0.7;
        p.drawPolyline(QPolygonF(
            {QPointF(cx - 2.5, up + 1.2), QPointF(cx, up - 1.2), QPointF(cx + 2.5, up + 1.2)}));
        p.drawPolyline(QPolygonF({QPointF(cx - 2.5, down - 1.2), QPointF(cx, down + 1.2),
                                  QPointF(cx + 2.5, down - 1.2)}));
    }

private:
    QSpinBox* m_spin;
};

} // namespace

NumberField::NumberField(int minimum, int maximum, QWidget* parent)
    : QWidget(parent), m_spin(new QSpinBox(this))
{
    m_spin->setRange(minimum, maximum);
    m_spin->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_spin->setKeyboardTracking(false);
    m_spin->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_spin->setFont(SettingsStyle::bodyFont());
    m_spin->setFixedSize(52, 22);
    m_spin->setStyleSheet(QStringLiteral(
        "QSpinBox { color: #262626; background: #FFFFFF; border: 1px solid #D2D2D5; border-radius: "
        "0px;"
        " padding: 0px 6px; selection-background-color: #B3D7FF; selection-color: black; }"
        "QSpinBox:focus { border: 1px solid #7FB5FF; }"
        "QSpinBox:disabled { color: #A8A8A8; background: #F8F8F8; border-color: #E2E2E4; }"));
    m_stepper = new Stepper(m_spin, this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(m_spin);
    row->addWidget(m_stepper);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_spin, &QSpinBox::valueChanged, this, [this](int v) { Q_EMIT valueChanged(v); });
}

int NumberField::value() const
{
    return m_spin->value();
}

void NumberField::setValueQuietly(int value)
{
    const QSignalBlocker quiet(m_spin);
    m_spin->setValue(value);
}

void NumberField::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        m_stepper->update();
    QWidget::changeEvent(event);
}

} // namespace ravlin
