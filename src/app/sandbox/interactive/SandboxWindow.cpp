#include "SandboxWindow.h"

#include "DesktopCanvas.h"
#include "sandbox/DesktopScene.h"
#include "sandbox/SampleDesktop.h"
#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptRunner.h"

#include "core/settings/KeyChord.h"
#include "platform/sim/SimAppearance.h"
#include "platform/sim/SimApplicationControl.h"
#include "platform/sim/SimAssessmentMode.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimHotKeys.h"
#include "platform/sim/SimStatusBar.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QTextStream>
#include <QToolButton>

namespace ravlin::sandbox {
namespace {

// The sample desktop on a screen of the given size, without the simulated system
// figures when the machine's own serve.
QString sampleFor(QSize screen, bool realSystem)
{
    QStringList lines;
    for (const QString& line : sampleDesktopScript().split(u'\n')) {
        if (line.startsWith(QStringLiteral("screen ")))
            lines << QStringLiteral("screen %1 %2 menubar=24")
                         .arg(screen.width())
                         .arg(screen.height());
        else if (realSystem && (line.startsWith(QStringLiteral("probe ")) ||
                                line.startsWith(QStringLiteral("location ")) ||
                                line.startsWith(QStringLiteral("forecast "))))
            continue;
        else
            lines << line;
    }
    return lines.join(u'\n');
}

QString eventText(const SimPostedEvent& e)
{
    if (e.kind == SimPostedEvent::Kind::Warp)
        return QStringLiteral("cursor warped to (%1, %2)")
            .arg(e.event.location.x, 0, 'f', 0)
            .arg(e.event.location.y, 0, 'f', 0);
    return QStringLiteral("posted mouse event %1 at (%2, %3) flags %4 to the %5 tap")
        .arg(int(e.event.type))
        .arg(e.event.location.x, 0, 'f', 0)
        .arg(e.event.location.y, 0, 'f', 0)
        .arg(e.event.flags)
        .arg(e.tap == EventTap::HID ? QStringLiteral("HID") : QStringLiteral("session"));
}

} // namespace

SandboxWindow::SandboxWindow(Setup setup) : m_setup(std::move(setup))
{
    setWindowTitle(QStringLiteral("Ravlin Sandbox"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_canvas = new DesktopCanvas(this);
    m_canvas->setFixedSize(m_setup.screenSize);
    connect(m_canvas, &DesktopCanvas::acted, this, &SandboxWindow::log);
    // Ravlin's windows are real windows above the canvas, at the same coordinates, and its
    // status menu is a real menu: the canvas draws neither.
    m_canvas->painter = [](QPainter& painter, SandboxSession& session) {
        DesktopRenderer().paint(painter, desktopScene(session, false, false));
    };
    row->addWidget(m_canvas, 0, Qt::AlignTop | Qt::AlignLeft);
    row->addWidget(buildSidebar());
    connect(&m_clock, &QTimer::timeout, this, &SandboxWindow::tick);
    qApp->installEventFilter(this);
}

bool SandboxWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !m_session || !m_session->hasApp())
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const std::optional<KeyChord> chord = KeyChord::fromQt(key->key(), int(key->modifiers()));
    if (chord && m_session->hotKeys().press(chord->virtualKeyCode(), chord->hotKeyModifiers())) {
        log(QStringLiteral("shortcut %1").arg(chord->displayText()));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

SandboxWindow::~SandboxWindow()
{
    qApp->removeEventFilter(this);
    m_canvas->setSession(nullptr);
}

QWidget* SandboxWindow::buildSidebar()
{
    auto* sidebar = new QWidget(this);
    sidebar->setFixedWidth(320);
    auto* column = new QVBoxLayout(sidebar);

    auto* apps = new QGroupBox(QStringLiteral("Applications"), sidebar);
    m_appList = new QVBoxLayout(apps);
    auto* scroll = new QScrollArea(sidebar);
    scroll->setWidget(apps);
    scroll->setWidgetResizable(true);
    column->addWidget(scroll, 2);

    auto* system = new QGroupBox(QStringLiteral("System"), sidebar);
    auto* form = new QFormLayout(system);
    auto* screen = new QCheckBox(QStringLiteral("Screen Recording"), system);
    auto* ax = new QCheckBox(QStringLiteral("Accessibility"), system);
    screen->setChecked(true);
    ax->setChecked(true);
    connect(screen, &QCheckBox::toggled, this, [this](bool on) {
        if (m_session) {
            m_session->desktop().screenRecording = on;
            log(QStringLiteral("screen recording %1")
                    .arg(on ? QStringLiteral("granted") : QStringLiteral("withdrawn")));
        }
    });
    connect(ax, &QCheckBox::toggled, this, [this](bool on) {
        if (m_session) {
            m_session->desktop().accessibilityTrusted = on;
            log(QStringLiteral("accessibility %1")
                    .arg(on ? QStringLiteral("granted") : QStringLiteral("withdrawn")));
        }
    });
    auto* dark = new QCheckBox(QStringLiteral("Dark appearance"), system);
    m_dark = dark;
    dark->setChecked(true);
    connect(dark, &QCheckBox::toggled, this, [this](bool on) {
        if (m_session && m_session->platform().appearance) {
            static_cast<SimAppearance&>(*m_session->platform().appearance).setDark(on);
            log(QStringLiteral("the system's appearance is %1 now")
                    .arg(on ? QStringLiteral("dark") : QStringLiteral("light")));
        }
    });
    form->addRow(screen);
    form->addRow(ax);
    form->addRow(dark);
    m_engine = new QComboBox(system);
    m_engine->addItems(
        {QStringLiteral("unavailable"), QStringLiteral("available"), QStringLiteral("refuse")});
    form->addRow(QStringLiteral("Hide engine (at restart)"), m_engine);
    column->addWidget(system);

    auto* buttons = new QHBoxLayout;
    auto* restartButton = new QPushButton(QStringLiteral("Restart Ravlin"), sidebar);
    auto* scriptButton = new QPushButton(QStringLiteral("Load Script…"), sidebar);
    connect(restartButton, &QPushButton::clicked, this, [this] { restart(m_currentScript); });
    connect(scriptButton, &QPushButton::clicked, this, [this] {
        const QString path =
            QFileDialog::getOpenFileName(this, QStringLiteral("Sandbox Script"), QString(),
                                         QStringLiteral("Sandbox scripts (*.rvs);;All files (*)"));
        if (!path.isEmpty())
            startScript(path);
    });
    buttons->addWidget(restartButton);
    buttons->addWidget(scriptButton);
    column->addLayout(buttons);

    column->addWidget(new QLabel(QStringLiteral("What Ravlin did"), sidebar));
    m_log = new QPlainTextEdit(sidebar);
    m_log->setReadOnly(true);
    m_log->setMaximumBlockCount(2000);
    m_log->setFont(QFont(QStringLiteral("DejaVu Sans Mono"), 8));
    column->addWidget(m_log, 3);
    return sidebar;
}

void SandboxWindow::startSample()
{
    restart(sampleFor(m_setup.screenSize, m_setup.realSystem) + QStringLiteral("\nstart\n"));
}

void SandboxWindow::startScript(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        log(QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
        return;
    }
    log(QStringLiteral("running %1").arg(path));
    restart(QString::fromUtf8(file.readAll()));
}

void SandboxWindow::restart(const QString& script)
{
    m_clock.stop();
    m_canvas->setSession(nullptr);
    m_runner.reset();
    m_session.reset();
    m_lengths.clear();
    m_currentScript = script;

    SandboxSession::Options options;
    options.defaultsPath = m_setup.defaultsPath;
    options.logDir = m_setup.logDir;
    options.realSystem = m_setup.realSystem;
    options.realLoginItems = m_setup.realSystem;
    m_session = std::make_unique<SandboxSession>(options);
    using B = SimAssessmentMode::Behaviour;
    static const B behaviours[] = {B::Unavailable, B::Available, B::Refuse};
    m_session->assessmentMode().setBehaviour(behaviours[qBound(0, m_engine->currentIndex(), 2)]);
    static_cast<SimAppearance&>(*m_session->platform().appearance).setDark(m_dark->isChecked());

    m_runnerOut.clear();
    m_out = std::make_unique<QTextStream>(&m_runnerOut);
    m_runner = std::make_unique<ScriptRunner>(*m_session, *m_out, *m_out);
    registerAll(*m_runner);
    const int status = m_runner->run(script);
    if (status == 0 && !m_session->started())
        m_runner->run(QStringLiteral("start\n"));
    m_out->flush();
    for (const QString& line : m_runnerOut.split(u'\n', Qt::SkipEmptyParts))
        log(line);
    if (status != 0)
        log(QStringLiteral("the script stopped with status %1").arg(status));

    m_canvas->setSession(m_session.get());
    rebuildAppList();
    m_elapsed.start();
    m_clock.start(16);
}

// Virtual time follows the wall clock while the window runs.
void SandboxWindow::tick()
{
    if (!m_session)
        return;
    m_session->scheduler().advance(double(m_elapsed.restart()) / 1000.0);
    reportChanges();
    m_canvas->refresh();
    if (!m_session->application().running()) {
        log(QStringLiteral("Ravlin ended (status %1); restart it from the side bar")
                .arg(m_session->application().exitCode().value_or(0)));
        m_clock.stop();
    }
}

void SandboxWindow::reportChanges()
{
    SimDesktop& desktop = m_session->desktop();
    for (const SimPostedEvent& e : desktop.takeEvents())
        log(eventText(e));
    for (const SimActivation& a : desktop.takeActivations())
        log(QStringLiteral("activated \"%1\" of %2 (%3)").arg(a.title, a.bundle, a.how));
    for (const QString& what : desktop.takeOpened())
        log(QStringLiteral("opened %1").arg(what));
    for (const SimStatusItem* item : m_session->statusBar().items()) {
        const double before = m_lengths.value(item->autosaveName(), -1);
        if (before != item->length()) {
            log(QStringLiteral("%1 length %2").arg(item->autosaveName()).arg(item->length()));
            m_lengths.insert(item->autosaveName(), item->length());
        }
    }
}

void SandboxWindow::rebuildAppList()
{
    while (QLayoutItem* old = m_appList->takeAt(0)) {
        delete old->widget();
        delete old;
    }
    for (const SimApp& app : m_session->desktop().apps()) {
        if (app.bundleId.startsWith(QStringLiteral("com.apple.")) ||
            app.bundleId == SimDesktop::ownBundleId)
            continue;
        auto* row = new QWidget;
        auto* h = new QHBoxLayout(row);
        h->setContentsMargins(0, 0, 0, 0);
        h->addWidget(new QLabel(app.name, row), 1);
        auto* button =
            new QPushButton(app.running ? QStringLiteral("Quit") : QStringLiteral("Launch"), row);
        const QString bundle = app.bundleId;
        connect(button, &QPushButton::clicked, this, [this, bundle, button] {
            SimDesktop& desktop = m_session->desktop();
            const SimApp* a = desktop.app(bundle);
            const bool running = a && a->running;
            running ? desktop.terminate(bundle) : desktop.launch(bundle);
            m_session->scheduler().runDue();
            log(QStringLiteral("%1 %2").arg(
                running ? QStringLiteral("quit") : QStringLiteral("launched"), bundle));
            button->setText(running ? QStringLiteral("Launch") : QStringLiteral("Quit"));
            m_canvas->update();
        });
        h->addWidget(button);
        m_appList->addWidget(row);
    }
    m_appList->addStretch();
}

void SandboxWindow::log(const QString& line)
{
    m_log->appendPlainText(line);
}

} // namespace ravlin::sandbox
