#include "WelcomeView.h"

#include "core/app/WelcomeGuide.h"
#include "core/settings/LanguageManager.h"
#include "ui/Theme.h"
#include "ui/settings/AppMark.h"
#include "ui/settings/ItemIcon.h"
#include "ui/settings/SettingsButton.h"
#include "ui/settings/SettingsColumn.h"
#include "ui/settings/SettingsGroup.h"
#include "ui/settings/SettingsRow.h"
#include "ui/settings/SettingsStyle.h"
#include "ui/settings/TextLabel.h"
#include "ui/settings/ToggleSwitch.h"

#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

namespace ravlin {
namespace {

QColor grantedGreen()
{
    return QColor(40, 160, 70);
}

QLabel* centred(QLabel* label)
{
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    return label;
}

ItemIcon* symbolIcon(const QString& symbol, const QColor& colour)
{
    auto* icon = new ItemIcon;
    icon->setSymbol(symbol, colour);
    return icon;
}

} // namespace

WelcomeView::WelcomeView(WelcomeGuide& guide, const LanguageManager& language, QWidget* parent)
    : QWidget(parent), m_guide(guide), m_language(language), m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("welcomeWindow"));
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, SettingsStyle::windowBackground());
    setPalette(palette);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    auto* closeKey = new QShortcut(QKeySequence::Close, this);
    connect(closeKey, &QShortcut::activated, this, &QWidget::close);
    connect(&guide, &WelcomeGuide::changed, this, &WelcomeView::rebuild);
    connect(&language, &LanguageManager::willChange, this, &WelcomeView::rebuild);
    rebuild();
}

QString WelcomeView::L(const QString& key) const
{
    return m_language.L(key);
}

void WelcomeView::rebuild()
{
    // Rebuilt from a control's own signal: the old content goes once that has returned.
    if (m_content) {
        m_content->hide();
        m_content->deleteLater();
    }
    m_content = new QWidget(this);
    auto* stack = new QVBoxLayout(m_content);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    auto* column = new SettingsColumn(QMargins(SettingsStyle::pageMargin, 22,
                                               SettingsStyle::pageMargin, 8),
                                      m_content);
    const bool introduction = m_guide.page() == WelcomePage::Introduction;
    if (introduction)
        buildIntroduction(*column);
    else
        buildItemNotShown(*column);
    column->finish();
    stack->addWidget(column);
    if (introduction)
        stack->addWidget(footer());
    m_layout->addWidget(m_content);
    m_content->show();
    setWindowTitle(introduction ? L(QStringLiteral("welcome.title"))
                                : L(QStringLiteral("welcome.hidden.title")));
    setLayoutDirection(m_language.isRTL() ? Qt::RightToLeft : Qt::LeftToRight);
    const int height = m_content->heightForWidth(windowWidth);
    setFixedSize(windowWidth, height > 0 ? height : m_content->sizeHint().height());
}

void WelcomeView::addHeader(SettingsColumn& column, const QString& title, const QString& text)
{
    auto* header = new QWidget(&column);
    auto* lines = new QVBoxLayout(header);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(4);
    lines->addWidget(new AppMark(header), 0, Qt::AlignHCenter);
    lines->addSpacing(4);
    QLabel* heading = SettingsStyle::label(title, Theme::font(20, QFont::DemiBold),
                                           SettingsStyle::primaryText(), header, true);
    heading->setObjectName(QStringLiteral("heading"));
    lines->addWidget(centred(heading));
    QLabel* body = SettingsStyle::label(text, SettingsStyle::bodyFont(),
                                        SettingsStyle::secondaryText(), header, true);
    body->setObjectName(QStringLiteral("text"));
    lines->addWidget(centred(body));
    column.addWidget(header, 0);
}

void WelcomeView::buildIntroduction(SettingsColumn& column)
{
    addHeader(column, L(QStringLiteral("welcome.title")), L(QStringLiteral("welcome.intro")));
    SettingsGroup* permissions = column.addSection(L(QStringLiteral("welcome.section.permissions")));
    const QString screenKey = QStringLiteral("welcome.screenRecording");
    addPermissionRow(permissions, QStringLiteral("screenRecording"), QStringLiteral("display"),
                     screenKey, m_guide.screenRecording());
    const QString accessibilityKey = QStringLiteral("welcome.accessibility");
    addPermissionRow(permissions, QStringLiteral("accessibility"), QStringLiteral("accessibility"),
                     accessibilityKey, m_guide.accessibility());

    SettingsGroup* start = column.addSection(L(QStringLiteral("welcome.section.start")));
    addShortcutRow(start);
    auto* row = new SettingsRow(L(QStringLiteral("general.launchAtLogin")),
                                L(QStringLiteral("general.launchAtLogin.desc")));
    row->setLeading(symbolIcon(QStringLiteral("power"), SettingsStyle::symbolGrey()));
    auto* login = new ToggleSwitch;
    login->setObjectName(QStringLiteral("launchAtLogin"));
    login->setAccessibleName(L(QStringLiteral("general.launchAtLogin")));
    login->setCheckedQuietly(m_guide.launchAtLogin());
    row->addTrailing(login);
    start->addRow(row);
    connect(login, &ToggleSwitch::toggled, this, [this](bool on) { m_guide.setLaunchAtLogin(on); });
}

// A granted permission says so in green; a missing one offers the way to its pane.
void WelcomeView::addPermissionRow(SettingsGroup* group, const QString& name,
                                   const QString& symbol, const QString& titleKey, bool granted)
{
    auto* row = new SettingsRow(L(titleKey), L(titleKey + QStringLiteral(".desc")));
    row->setObjectName(name);
    row->setLeading(symbolIcon(symbol, granted ? grantedGreen() : SettingsStyle::symbolGrey()));
    if (granted) {
        QLabel* state = SettingsStyle::label(QStringLiteral("✓ ") + L(QStringLiteral("welcome.granted")),
                                             SettingsStyle::bodyFont(), grantedGreen(), row);
        state->setObjectName(name + QStringLiteral("State"));
        row->addTrailing(state);
    } else {
        QPushButton* open = SettingsColumn::makeButton(
            QStringLiteral("open") + name.left(1).toUpper() + name.mid(1),
            L(QStringLiteral("welcome.openSettings")), row);
        const bool screen = name == u"screenRecording";
        connect(open, &QPushButton::clicked, this, [this, screen] {
            if (screen)
                m_guide.openScreenRecordingSettings();
            else
                m_guide.openAccessibilitySettings();
        });
        row->addTrailing(open);
    }
    group->addRow(row);
}

// The chord as the system writes it, on a key cap.
void WelcomeView::addShortcutRow(SettingsGroup* group)
{
    auto* row = new SettingsRow(L(QStringLiteral("welcome.shortcut")),
                                L(QStringLiteral("welcome.shortcut.desc")));
    row->setLeading(symbolIcon(QStringLiteral("keyboard"), SettingsStyle::symbolGrey()));
    const std::optional<KeyChord> chord = m_guide.panelShortcut();
    QLabel* keys = SettingsStyle::label(chord ? chord->displayText() : L(QStringLiteral("shortcut.none")),
                                        SettingsStyle::bodyFont(), SettingsStyle::primaryText(), row);
    keys->setObjectName(QStringLiteral("shortcut"));
    // Keys read left to right in every language, as the system writes them.
    static_cast<TextLabel*>(keys)->setFollowsWindowDirection(false);
    auto* cap = new QFrame(row);
    cap->setObjectName(QStringLiteral("keyCap"));
    cap->setStyleSheet(QStringLiteral("#keyCap { background: white; border: 1px solid #c8c8cc;"
                                      " border-radius: 5px; }"));
    auto* inside = new QHBoxLayout(cap);
    inside->setContentsMargins(9, 3, 9, 3);
    keys->setParent(cap);
    inside->addWidget(keys);
    row->addTrailing(cap);
    group->addRow(row);
}

QWidget* WelcomeView::footer()
{
    auto* bar = new QWidget(m_content);
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins(SettingsStyle::pageMargin, 4, SettingsStyle::pageMargin, 18);
    line->addStretch();
    auto* done = new SettingsButton(SettingsButton::Kind::Push, L(QStringLiteral("welcome.done")), bar);
    done->setObjectName(QStringLiteral("done"));
    done->setDefault(true);
    connect(done, &QPushButton::clicked, this, [this] { m_guide.finish(); });
    line->addWidget(done);
    return bar;
}

void WelcomeView::buildItemNotShown(SettingsColumn& column)
{
    addHeader(column, L(QStringLiteral("welcome.hidden.title")),
              L(QStringLiteral("welcome.hidden.text")));
    auto* open = new SettingsButton(SettingsButton::Kind::Push,
                                    L(QStringLiteral("welcome.hidden.open")), &column);
    open->setObjectName(QStringLiteral("openMenuBarSettings"));
    open->setDefault(true);
    connect(open, &QPushButton::clicked, this, [this] { m_guide.openMenuBarSettings(); });
    auto* holder = new QWidget(&column);
    auto* line = new QHBoxLayout(holder);
    line->setContentsMargins(0, 0, 0, 10);
    line->addStretch();
    line->addWidget(open);
    line->addStretch();
    column.addWidget(holder, 16);
}

void WelcomeView::closeEvent(QCloseEvent* event)
{
    event->accept();
    Q_EMIT closed();
}

} // namespace ravlin
