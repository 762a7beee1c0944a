#include "ArrangeHUD.h"

#include "ArrangeView.h"
#include "NativeWindow.h"
#include "core/settings/LanguageManager.h"
#include "platform/Screens.h"

#include <QVBoxLayout>
#include <QWidget>

namespace ravlin {
namespace {

// The screen whose frame holds the anchor's centre, else the main one.
ScreenInfo screenFor(Screens& screens, const ScreenRect& anchor)
{
    const ScreenPoint centre{anchor.x + anchor.width / 2, anchor.y + anchor.height / 2};
    for (const ScreenInfo& s : screens.screens())
        if (s.frame.contains(centre))
            return s;
    if (auto main = screens.mainScreen())
        return *main;
    return ScreenInfo{{0, 0, 1440, 900}, {0, 0, 1440, 876}};
}

double mainDisplayHeight(Screens& screens)
{
    const auto all = screens.screens();
    return all.empty() ? 900.0 : all.front().frame.height;
}

} // namespace

ArrangeHUD::ArrangeHUD(Screens& screens, const LanguageManager& language)
    : m_screens(screens), m_language(language)
{}

ArrangeHUD::~ArrangeHUD() = default;

void ArrangeHUD::makePanel()
{
    m_panel = std::make_unique<QWidget>(nullptr, Qt::Tool | Qt::FramelessWindowHint |
                                                     Qt::WindowStaysOnTopHint);
    m_panel->setAttribute(Qt::WA_TranslucentBackground);
    m_madeInLanguage = m_language.effectiveCode();
    m_panel->setWindowTitle(m_language.L(QStringLiteral("arrange.title")));
    auto* layout = new QVBoxLayout(m_panel.get());
    layout->setContentsMargins(0, 0, 0, 0);
    m_view = new ArrangeView(m_language, m_panel.get());
    m_view->onDone = [this] {
        if (onDone)
            onDone();
    };
    layout->addWidget(m_view);
    // The panel style must be in place before the window is first shown.
    NativeWindow::makeMenuBarPanel(m_panel.get());
}

void ArrangeHUD::show(const ScreenRect& anchor)
{
    if (!m_panel || m_madeInLanguage != m_language.effectiveCode())
        makePanel();
    const int width = ArrangeView::contentWidth;
    const int height = m_view->heightForWidth(width);
    const ScreenInfo screen = screenFor(m_screens, anchor);
    const QPointF origin = arrangeGuideOrigin(
        QRectF(anchor.x, anchor.y, anchor.width, anchor.height),
        QRectF(screen.frame.x, screen.frame.y, screen.frame.width, screen.frame.height),
        QSizeF(width, height));
    const WindowServerRect placed =
        Geometry::toWindowServer(ScreenRect{origin.x(), origin.y(), double(width), double(height)},
                                 mainDisplayHeight(m_screens));
    m_panel->setGeometry(qRound(placed.x), qRound(placed.y), width, height);
    m_panel->show();
    NativeWindow::makeMenuBarPanel(m_panel.get());
    m_panel->raise();
    m_panel->activateWindow();
}

void ArrangeHUD::hide()
{
    if (m_panel)
        m_panel->hide();
}

bool ArrangeHUD::isVisible() const
{
    return m_panel && m_panel->isVisible();
}

std::optional<ScreenRect> ArrangeHUD::frame() const
{
    if (!isVisible())
        return std::nullopt;
    const QRect g = m_panel->geometry();
    return Geometry::toScreen(
        WindowServerRect{double(g.x()), double(g.y()), double(g.width()), double(g.height())},
        mainDisplayHeight(m_screens));
}

QWidget* ArrangeHUD::window() const
{
    return m_panel.get();
}

} // namespace ravlin
