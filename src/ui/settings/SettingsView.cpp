#include "SettingsView.h"

#include "AboutTab.h"
#include "GeneralTab.h"
#include "LanguageTab.h"
#include "MenuBarTab.h"
#include "RulesTab.h"
#include "SettingsStyle.h"
#include "SettingsToolbar.h"
#include "core/app/AppDelegate.h"
#include "core/settings/LanguageManager.h"
#include "core/app/SoftwareUpdate.h"
#include "core/settings/Preferences.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace ravlin {
namespace {

struct TabInfo {
    const char16_t* symbol;
    const char16_t* titleKey;
    int place; // in the toolbar; -1 at the end
};
// By index; the rules came later, and stand beside the menu bar's tab.
constexpr std::array<TabInfo, SettingsView::tabCount> tabs = {{
    {u"gearshape", u"tab.general", -1},
    {u"menubar.rectangle", u"tab.menubar", -1},
    {u"globe", u"tab.language", -1},
    {u"info.circle", u"tab.about", -1},
    {u"bolt.badge.clock", u"tab.rules", 2},
}};

QScrollArea* scrolling(SettingsPage* page)
{
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(page);
    scroll->viewport()->setAutoFillBackground(false);
    scroll->setStyleSheet(QStringLiteral(
        "QScrollArea { background: transparent; }"
        "QScrollBar:vertical { background: transparent; width: 9px; margin: 2px 1px 2px 0; }"
        "QScrollBar::handle:vertical { background: rgba(0,0,0,0.28); border-radius: 3px; "
        "min-height: 30px; }"
        "QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }"
        "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: transparent; "
        "}"));
    return scroll;
}

} // namespace

SettingsView::SettingsView(AppDelegate& app, SettingsActions& actions, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint | Qt::WindowMinimizeButtonHint),
      m_app(app), m_actions(actions)
{
    setObjectName(QStringLiteral("settingsWindow"));
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, SettingsStyle::windowBackground());
    setPalette(palette);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    // ⌘W closes it, as it closes every window of the system.
    auto* closeKey = new QShortcut(QKeySequence::Close, this);
    connect(closeKey, &QShortcut::activated, this, &QWidget::close);
    connect(&app.preferences(), &Preferences::willChange, this, &SettingsView::refreshPages);
    connect(&app.softwareUpdate(), &SoftwareUpdate::changed, this, &SettingsView::refreshPages);
    connect(&app.languageManager(), &LanguageManager::willChange, this, &SettingsView::rebuild);
    build();
}

SettingsView::~SettingsView()
{
    // Nothing of this window may outlive it, not even content still waiting to be deleted.
    for (const QPointer<QWidget>& retired : m_retired)
        delete retired.data();
}

void SettingsView::build()
{
    const LanguageManager& lm = m_app.languageManager();
    setLayoutDirection(lm.isRTL() ? Qt::RightToLeft : Qt::LeftToRight);
    setAccessibleName(lm.L(QStringLiteral("settings.title")));

    m_content = new QWidget(this);
    auto* column = new QVBoxLayout(m_content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_toolbar = new SettingsToolbar(m_content);
    for (const TabInfo& tab : tabs)
        m_toolbar->addTab(QString::fromUtf16(tab.symbol), lm.L(QString::fromUtf16(tab.titleKey)),
                          tab.place);
    connect(m_toolbar, &SettingsToolbar::tabChosen, this, [this](int tab) { showTab(tab, true); });
    column->addWidget(m_toolbar);

    m_stack = new QStackedWidget(m_content);
    m_pages = {new GeneralTab(m_app, m_actions), new MenuBarTab(m_app, m_actions),
               new LanguageTab(m_app, m_actions), new AboutTab(m_app, m_actions),
               new RulesTab(m_app, m_actions)};
    for (SettingsPage* page : m_pages) {
        page->setObjectName(QStringLiteral("page:%1").arg(m_stack->count()));
        m_stack->addWidget(scrolling(page));
        connect(page, &SettingsPage::contentChanged, this, [this, page] {
            if (page == m_pages[std::size_t(m_tab)])
                fitToPage();
        });
    }
    column->addWidget(m_stack, 1);
    layout()->addWidget(m_content);
    m_content->show();
    showTab(m_tab, false);
}

void SettingsView::rebuild()
{
    // The control that asked for the new language may be the one being replaced,
    // so the old content leaves the window now and is deleted once it returns.
    if (m_content) {
        layout()->removeWidget(m_content);
        m_content->hide();
        m_content->setParent(nullptr);
        m_content->deleteLater();
        std::erase_if(m_retired, [](const QPointer<QWidget>& w) { return w.isNull(); });
        m_retired.emplace_back(m_content);
    }
    build();
}

void SettingsView::setCurrentTab(int tab)
{
    showTab(tab, true);
}

void SettingsView::showTab(int tab, bool announce)
{
    if (tab < 0 || tab >= tabCount)
        return;
    m_tab = tab;
    m_toolbar->setCurrent(tab);
    m_stack->setCurrentIndex(tab);
    setWindowTitle(m_toolbar->tabButton(tab)->text());
    if (announce)
        m_pages[std::size_t(tab)]->activated();
    fitToPage();
}

SettingsPage* SettingsView::page(int tab) const
{
    return tab >= 0 && tab < tabCount ? m_pages[std::size_t(tab)] : nullptr;
}

void SettingsView::refreshPages()
{
    for (SettingsPage* page : m_pages)
        page->refresh();
}

void SettingsView::fitToPage()
{
    SettingsPage* page = m_pages[std::size_t(m_tab)];
    const int width = SettingsStyle::windowWidth;
    const int needed =
        page->hasHeightForWidth() ? page->heightForWidth(width) : page->sizeHint().height();
    const int toolbar = m_toolbar->sizeHint().height();
    const int room = std::max(200, m_maximumHeight - SettingsStyle::screenAllowance - toolbar);
    const bool scrolls = needed > room;
    // A page that fits never shows a scroll bar, not even for a moment while the window settles.
    auto* scroll = static_cast<QScrollArea*>(m_stack->widget(m_tab));
    scroll->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    // A scrolling page keeps the height its wrapped lines need beside the scroll bar; the
    // scroll area would otherwise squeeze its rows to the viewport.
    page->setMinimumHeight(
        scrolls ? page->heightForWidth(width - scroll->verticalScrollBar()->sizeHint().width())
                : 0);
    setFixedSize(width, toolbar + (scrolls ? room : needed));
}

void SettingsView::setMaximumWindowHeight(int height)
{
    if (height == m_maximumHeight)
        return;
    m_maximumHeight = height;
    fitToPage();
}

void SettingsView::closeEvent(QCloseEvent* event)
{
    event->accept();
    Q_EMIT closed();
}

} // namespace ravlin
