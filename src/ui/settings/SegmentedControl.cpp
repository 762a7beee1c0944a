#include "SegmentedControl.h"

#include "SettingsButton.h"
#include "SettingsStyle.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>

namespace ravlin {

SegmentedControl::SegmentedControl(QWidget* parent)
    : QWidget(parent), m_group(new QButtonGroup(this))
{
    m_group->setExclusive(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(2, 2, 2, 2);
    row->setSpacing(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_group, &QButtonGroup::idClicked, this, [this](int id) {
        if (id >= 0 && id < m_values.size())
            Q_EMIT chosen(m_values.at(id));
    });
}

void SegmentedControl::addSegment(const QString& value, const QString& title)
{
    auto* button = new SettingsButton(SettingsButton::Kind::Segment, title, this);
    button->setObjectName(QStringLiteral("segment:") + value);
    m_group->addButton(button, int(m_values.size()));
    m_values.append(value);
    m_segments.push_back(button);
    layout()->addWidget(button);
}

QString SegmentedControl::value() const
{
    const int id = m_group->checkedId();
    return id >= 0 && id < m_values.size() ? m_values.at(id) : QString();
}

void SegmentedControl::setValue(const QString& value)
{
    const QSignalBlocker quiet(m_group);
    const qsizetype index = m_values.indexOf(value);
    if (index >= 0)
        m_segments[std::size_t(index)]->setChecked(true);
}

QPushButton* SegmentedControl::segment(const QString& value) const
{
    const qsizetype index = m_values.indexOf(value);
    return index >= 0 ? m_segments[std::size_t(index)] : nullptr;
}

void SegmentedControl::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(SettingsStyle::controlTrack());
    p.drawRoundedRect(QRectF(rect()), 6.5, 6.5);
}

} // namespace ravlin
