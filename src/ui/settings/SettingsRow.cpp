#include "SettingsRow.h"

#include "SettingsStyle.h"
#include "TextLabel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace ravlin {

SettingsRow::SettingsRow(const QString& title, const QString& description, QWidget* parent)
    : QWidget(parent), m_row(new QHBoxLayout(this)), m_text(new QVBoxLayout)
{
    m_row->setContentsMargins(SettingsStyle::rowInset, 8, SettingsStyle::rowInset, 8);
    m_row->setSpacing(10);
    m_text->setSpacing(1);
    m_title = SettingsStyle::label(title, SettingsStyle::bodyFont(), SettingsStyle::primaryText(),
                                   this, true);
    m_title->setObjectName(QStringLiteral("title"));
    m_text->addWidget(m_title);
    if (!description.isEmpty()) {
        m_description = SettingsStyle::label(description, SettingsStyle::captionFont(),
                                             SettingsStyle::secondaryText(), this, true);
        m_description->setObjectName(QStringLiteral("description"));
        m_text->addWidget(m_description);
    }
    m_row->addLayout(m_text, 1);
    setMinimumHeight(SettingsStyle::rowMinHeight);
}

void SettingsRow::setLeading(QWidget* widget)
{
    widget->setParent(this);
    m_row->insertWidget(0, widget, 0, Qt::AlignVCenter);
}

void SettingsRow::setTitleWidget(QWidget* widget)
{
    widget->setParent(this);
    m_title->hide();
    m_text->insertWidget(0, widget, 0, Qt::AlignLeading);
}

void SettingsRow::addTrailing(QWidget* widget)
{
    widget->setParent(this);
    m_row->addWidget(widget, 0, Qt::AlignVCenter);
}

void SettingsRow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange) {
        const bool on = isEnabled();
        SettingsStyle::setTextColor(m_title, on ? SettingsStyle::primaryText()
                                                : SettingsStyle::tertiaryText());
        if (m_description)
            SettingsStyle::setTextColor(m_description, on ? SettingsStyle::secondaryText()
                                                          : SettingsStyle::tertiaryText());
    }
    QWidget::changeEvent(event);
}

void SettingsRow::setTitleIsName()
{
    static_cast<TextLabel*>(m_title)->setFollowsWindowDirection(false);
}

bool SettingsRow::setHint(const QString& text, bool visible)
{
    const bool wasShown = m_hint && !m_hint->isHidden();
    const QString before = m_hint ? static_cast<TextLabel*>(m_hint)->plainText() : QString();
    if (!m_hint) {
        m_hint = SettingsStyle::label(text, SettingsStyle::captionFont(), SettingsStyle::accent(),
                                      this, true);
        m_hint->setObjectName(QStringLiteral("hint"));
        m_text->addWidget(m_hint);
    }
    static_cast<TextLabel*>(m_hint)->setPlainText(text);
    m_hint->setVisible(visible);
    return wasShown != visible || (visible && before != text);
}

} // namespace ravlin
