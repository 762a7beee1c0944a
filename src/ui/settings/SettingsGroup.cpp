#include "SettingsGroup.h"

#include "SettingsStyle.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace ravlin {

SettingsGroup::SettingsGroup(QWidget* parent) : QWidget(parent), m_rows(new QVBoxLayout(this))
{
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
}

void SettingsGroup::addRow(QWidget* row)
{
    row->setParent(this);
    m_rows->addWidget(row);
    row->show();
}

QWidget* SettingsGroup::addMessageRow(const QString& text)
{
    QLabel* message = SettingsStyle::label(text, SettingsStyle::bodyFont(),
                                           SettingsStyle::secondaryText(), this, true);
    message->setObjectName(QStringLiteral("message"));
    message->setAlignment(Qt::AlignCenter);
    message->setContentsMargins(SettingsStyle::rowInset, 12, SettingsStyle::rowInset, 12);
    addRow(message);
    return message;
}

void SettingsGroup::clear()
{
    while (QLayoutItem* item = m_rows->takeAt(0)) {
        if (QWidget* w = item->widget()) {
            w->hide();
            w->setParent(nullptr);
            w->deleteLater();
        }
        delete item;
    }
}

int SettingsGroup::rowCount() const
{
    return m_rows->count();
}

void SettingsGroup::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    p.setPen(QPen(SettingsStyle::groupBorder(), 1));
    p.setBrush(SettingsStyle::groupFill());
    p.drawRoundedRect(box, SettingsStyle::groupRadius, SettingsStyle::groupRadius);

    // Hairlines between visible rows, inset from both edges.
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setPen(QPen(SettingsStyle::separator(), 1));
    QWidget* previous = nullptr;
    for (int i = 0; i < m_rows->count(); ++i) {
        QWidget* row = m_rows->itemAt(i)->widget();
        if (!row || row->isHidden())
            continue;
        if (previous) {
            const int y = row->geometry().top();
            p.drawLine(SettingsStyle::rowInset, y, width() - SettingsStyle::rowInset - 1, y);
        }
        previous = row;
    }
}

} // namespace ravlin
