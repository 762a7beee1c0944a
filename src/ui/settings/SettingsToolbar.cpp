#include "SettingsToolbar.h"

#include "SettingsStyle.h"
#include "ui/SymbolRenderer.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>
#include <QSignalBlocker>

namespace ravlin {
namespace {

constexpr int tabHeight = 50;

class TabButton : public QAbstractButton {
public:
    TabButton(QString symbol, const QString& title, QWidget* parent)
        : QAbstractButton(parent), m_symbol(std::move(symbol))
    {
        setText(title);
        setCheckable(true);
        setFont(SettingsStyle::smallFont());
        setCursor(Qt::PointingHandCursor);
        setFocusPolicy(Qt::TabFocus);
        setAccessibleName(title);
    }

    QSize sizeHint() const override
    {
        const int textWidth = QFontMetrics(font()).horizontalAdvance(text());
        return {qMax(64, textWidth + 20), tabHeight};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        if (isChecked() || isDown()) {
            p.setPen(Qt::NoPen);
            p.setBrush(isDown() && !isChecked() ? QColor(0, 0, 0, 10)
                                                : SettingsStyle::selectedTab());
            p.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 7, 7);
        }
        const QColor ink = isChecked() ? SettingsStyle::accent() : SettingsStyle::symbolGrey();
        SymbolRenderer::paint(p, QRectF(0, 6, width(), 22), m_symbol, ink);
        p.setFont(font());
        p.setPen(isChecked() ? SettingsStyle::primaryText() : QColor(0, 0, 0, 165));
        p.drawText(QRectF(2, 31, width() - 4, 15), Qt::AlignHCenter | Qt::AlignVCenter, text());
    }

private:
    QString m_symbol;
};

} // namespace

SettingsToolbar::SettingsToolbar(QWidget* parent) : QWidget(parent), m_group(new QButtonGroup(this))
{
    m_group->setExclusive(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 12, 7);
    row->setSpacing(2);
    row->addStretch(1);
    row->addStretch(1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(m_group, &QButtonGroup::idClicked, this, [this](int id) { Q_EMIT tabChosen(id); });
}

void SettingsToolbar::addTab(const QString& symbol, const QString& title, int place)
{
    auto* button = new TabButton(symbol, title, this);
    button->setObjectName(QStringLiteral("tab:%1").arg(m_buttons.size()));
    m_group->addButton(button, int(m_buttons.size()));
    m_buttons.push_back(button);
    auto* row = static_cast<QHBoxLayout*>(layout());
    // Between the two stretches: the first is item 0.
    row->insertWidget(place < 0 ? row->count() - 1 : std::min(1 + place, row->count() - 1), button);
}

void SettingsToolbar::setCurrent(int index)
{
    if (index < 0 || index >= count())
        return;
    const QSignalBlocker quiet(m_group);
    m_buttons[std::size_t(index)]->setChecked(true);
}

int SettingsToolbar::current() const
{
    return m_group->checkedId();
}

QAbstractButton* SettingsToolbar::tabButton(int index) const
{
    return index >= 0 && index < count() ? m_buttons[std::size_t(index)] : nullptr;
}

void SettingsToolbar::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.fillRect(rect(), SettingsStyle::toolbarBackground());
    p.fillRect(QRect(0, height() - 1, width(), 1), SettingsStyle::hairline());
}

} // namespace ravlin
