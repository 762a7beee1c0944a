#include "ArrangeView.h"

#include "SymbolRenderer.h"
#include "Theme.h"
#include "core/settings/LanguageManager.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

namespace ravlin {
namespace {

class SymbolLabel : public QWidget {
public:
    SymbolLabel(QString symbol, QColor color, int size, QWidget* parent)
        : QWidget(parent), m_symbol(std::move(symbol)), m_color(color)
    {
        setFixedSize(size, size);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        SymbolRenderer::paint(p, rect(), m_symbol, m_color);
    }

private:
    QString m_symbol;
    QColor m_color;
};

QLabel* label(const QString& text, const QFont& font, const QColor& color, QWidget* parent)
{
    auto* l = new QLabel(text, parent);
    l->setFont(font);
    QPalette palette = l->palette();
    palette.setColor(QPalette::WindowText, color);
    l->setPalette(palette);
    return l;
}

QWidget* legendEntry(const QString& symbol, const QString& text, QWidget* parent)
{
    auto* box = new QWidget(parent);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(5);
    row->addWidget(new SymbolLabel(symbol, Theme::hudSecondaryText(), 14, box));
    row->addWidget(label(text, Theme::font(11), Theme::hudSecondaryText(), box));
    return box;
}

} // namespace

ArrangeView::ArrangeView(const LanguageManager& language, QWidget* parent) : QWidget(parent)
{
    auto L = [&](const char* key) { return language.L(QString::fromLatin1(key)); };
    setLayoutDirection(language.isRTL() ? Qt::RightToLeft : Qt::LeftToRight);
    setAttribute(Qt::WA_TranslucentBackground);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 14, 16, 12);
    column->setSpacing(10);

    auto* title = new QHBoxLayout;
    title->setSpacing(8);
    title->addWidget(
        new SymbolLabel(QStringLiteral("arrow.left.and.right"), Theme::systemBlue(), 18, this));
    title->addWidget(
        label(L("arrange.title"), Theme::font(13, QFont::DemiBold), Theme::hudPrimaryText(), this));
    title->addStretch();
    column->addLayout(title);

    auto* instruction =
        label(L("arrange.instruction"), Theme::font(11.5), Theme::hudPrimaryText(), this);
    instruction->setTextFormat(Qt::RichText);
    instruction->setWordWrap(true);
    column->addWidget(instruction);

    auto* footer = new QHBoxLayout;
    footer->setSpacing(12);
    footer->addWidget(legendEntry(QStringLiteral("eye.slash"), L("arrange.hidden"), this));
    footer->addWidget(legendEntry(QStringLiteral("eye"), L("arrange.visible"), this));
    footer->addStretch();
    m_done = new QPushButton(L("arrange.done"), this);
    m_done->setFont(Theme::font(12, QFont::DemiBold));
    m_done->setCursor(Qt::PointingHandCursor);
    m_done->setDefault(true);
    m_done->setStyleSheet(QStringLiteral(
        "QPushButton { color: white; background: #0A84FF; border: none; border-radius: 6px; "
        "padding: 3px 14px; min-height: 18px; }"
        "QPushButton:hover { background: #2F95FF; } QPushButton:pressed { background: #0070E0; }"));
    connect(m_done, &QPushButton::clicked, this, [this] {
        if (onDone)
            onDone();
    });
    footer->addWidget(m_done);
    column->addLayout(footer);
}

QSize ArrangeView::sizeHint() const
{
    return {contentWidth, heightForWidth(contentWidth)};
}

int ArrangeView::heightForWidth(int width) const
{
    return layout()->heightForWidth(width);
}

void ArrangeView::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 14, 14);
    p.fillPath(shape, Theme::hudBackground());
    p.setPen(QPen(Theme::hudBorder(), 1));
    p.drawPath(shape);
}

} // namespace ravlin
