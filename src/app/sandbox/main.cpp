// ravlin-sandbox: the whole application over a simulated macOS desktop.
//   --script FILE   run a sandbox script headless, in virtual time
//   (no --script)   with a display: the sandbox window; without: the built-in demo

#include "DemoScript.h"
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"
#include "interactive/SandboxWindow.h"

#include "platform/linux/PlistFileDefaultsStore.h"
#include "platform/sim/SimAssessmentMode.h"
#include "platform/sim/SimDesktop.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLoggingCategory>
#include <QScreen>
#include <QTextStream>

#include <cstdio>
#include <unistd.h>

namespace {

using namespace ravlin::sandbox;

bool hasDisplay()
{
    if (qEnvironmentVariable("QT_QPA_PLATFORM") == u"offscreen")
        return false;
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

int runScript(const QString& script, const SandboxSession::Options& options,
              const std::optional<ScriptRunner::Cell>& cell)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    SandboxSession session(options);
    ScriptRunner runner(session, out, err);
    registerAll(runner);
    if (cell) {
        runner.setCell(*cell);
        session.desktop().setGeneration(cell->system);
        session.assessmentMode().setBehaviour(cell->engine
                                                  ? ravlin::SimAssessmentMode::Behaviour::Available
                                                  : ravlin::SimAssessmentMode::Behaviour::Unavailable);
    }
    return runner.run(script);
}

// "27:engine", "15:separators".
std::optional<ScriptRunner::Cell> parseCell(const QString& text)
{
    const QStringList parts = text.split(u':');
    if (parts.size() != 2 || (parts[1] != u"engine" && parts[1] != u"separators"))
        return std::nullopt;
    bool ok = false;
    const int system = parts[0].toInt(&ok);
    if (!ok || (system != 15 && system != 26 && system != 27))
        return std::nullopt;
    return ScriptRunner::Cell{system, parts[1] == u"engine"};
}

// The headless tour: narrated on standard output, pictures and the trace in a folder.
int runDemo(const SandboxSession::Options& options, QString folder)
{
    if (folder.isEmpty())
        folder = QDir::temp().filePath(
            QStringLiteral("ravlin-demo-") +
            QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")));
    folder = QDir(folder).absolutePath();
    QDir().mkpath(folder);
    QString trace;
    QTextStream narration(&trace);
    int status = 0;
    double seconds = 0;
    int commands = 0;
    // Each tour runs on a desktop of its own.
    const QStringList tours = QStringList{demoScript(folder), crowdedDemoScript(folder)} +
                              worldDemoScripts(folder) +
                              QStringList{iconSwitchedOffDemoScript(folder)};
    for (const QString& script : tours) {
        SandboxSession session(options);
        ScriptRunner runner(session, narration, narration);
        registerAll(runner);
        runner.setEcho(true);
        status = runner.run(script);
        seconds += session.scheduler().now();
        commands += runner.commandsRun();
        if (status != 0)
            break;
    }
    narration << "\nRavlin sandbox ran headless (no display found): " << commands
              << " commands over the simulated desktop in " << seconds << " virtual seconds"
              << (status == 0 ? ", every step held." : ", and stopped early.") << '\n'
              << "Screenshots and the trace are in " << folder << '\n'
              << "With a display, the same command opens the sandbox window.\n";
    narration.flush();
    QFile file(folder + QStringLiteral("/trace.txt"));
    if (file.open(QIODevice::WriteOnly))
        file.write(trace.toUtf8());
    QTextStream(stdout) << trace;
    return status;
}

// Offscreen windows cannot be raised or sized by the window system; the headless
// sandbox does not need to hear about it on every call.
QtMessageHandler defaultHandler = nullptr;

void quietOffscreenNotes(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(QStringLiteral("This plugin does not support")))
        return;
    if (defaultHandler)
        defaultHandler(type, context, message);
}

SandboxWindow* logWindow = nullptr;

// Ravlin's own log lines also go to the window's log.
void logToWindow(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (defaultHandler)
        defaultHandler(type, context, message);
    if (logWindow && context.category && QByteArray(context.category).startsWith("de.vexa.Ravlin"))
        logWindow->log(message);
}

// One interactive sandbox at a time: a second start brings the first one forward.
bool forwardToRunningCopy(QLocalServer& server)
{
    const QString name = QStringLiteral("ravlin-sandbox-%1").arg(getuid());
    QLocalSocket probe;
    probe.connectToServer(name);
    if (probe.waitForConnected(300)) {
        probe.write("raise\n");
        probe.waitForBytesWritten(300);
        return true;
    }
    QLocalServer::removeServer(name);
    server.listen(name);
    return false;
}

int showWindow(const SandboxSession::Options& options)
{
    QLocalServer single;
    if (forwardToRunningCopy(single)) {
        std::fprintf(stdout, "Ravlin sandbox is already running; brought it forward.\n");
        return 0;
    }
    // The simulated screen fills the real one, beside a side bar, so that Ravlin's
    // windows stand at the same coordinates on both.
    const QRect available = QGuiApplication::primaryScreen()->geometry();
    SandboxWindow::Setup setup;
    setup.defaultsPath = options.defaultsPath.isEmpty()
                             ? ravlin::PlistFileDefaultsStore::defaultPath()
                             : options.defaultsPath;
    setup.logDir = options.logDir;
    setup.screenSize =
        QSize(std::max(800, available.width() - 320), std::max(500, available.height()));
    SandboxWindow window(setup);
    QObject::connect(&single, &QLocalServer::newConnection, &window, [&] {
        if (QLocalSocket* s = single.nextPendingConnection())
            s->deleteLater();
        window.raise();
        window.activateWindow();
    });
    window.setWindowFlag(Qt::FramelessWindowHint);
    window.setGeometry(available.x(), available.y(), setup.screenSize.width() + 320,
                       setup.screenSize.height());
    logWindow = &window;
    defaultHandler = qInstallMessageHandler(logToWindow);
    window.show();
    window.startSample();
    const int status = QApplication::exec();
    logWindow = nullptr;
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    QStringList rawArgs;
    for (int i = 1; i < argc; ++i)
        rawArgs.append(QString::fromLocal8Bit(argv[i]));
    const bool scripted = rawArgs.contains(QStringLiteral("--script"));
    const bool headless = scripted || !hasDisplay();
    if (headless) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        defaultHandler = qInstallMessageHandler(quietOffscreenNotes);
        if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
            const QByteArray runtime =
                QDir::tempPath().toLocal8Bit() + "/ravlin-runtime-" + QByteArray::number(getuid());
            QDir().mkpath(QString::fromLocal8Bit(runtime));
            QFile::setPermissions(QString::fromLocal8Bit(runtime),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            qputenv("XDG_RUNTIME_DIR", runtime);
        }
    }

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Ravlin"));
    // Debug lines only when asked for (QT_LOGGING_RULES still wins).
    if (qEnvironmentVariableIsEmpty("QT_LOGGING_RULES"))
        QLoggingCategory::setFilterRules(QStringLiteral("de.vexa.Ravlin.*.debug=false"));
    QApplication::setOrganizationDomain(QStringLiteral("vexa.de"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Ravlin over a simulated macOS desktop."));
    parser.addHelpOption();
    QCommandLineOption scriptOption(
        QStringLiteral("script"), QStringLiteral("Run a sandbox script ('-' for standard input)."),
        QStringLiteral("FILE"));
    QCommandLineOption defaultsOption(
        QStringLiteral("defaults"),
        QStringLiteral("Use this property-list file as the settings file."),
        QStringLiteral("PLIST"));
    QCommandLineOption logDirOption(QStringLiteral("log-dir"),
                                    QStringLiteral("Write the self-test logs here."),
                                    QStringLiteral("DIR"));
    QCommandLineOption demoDirOption(
        QStringLiteral("demo-dir"),
        QStringLiteral("Without a display: where the demo writes its screenshots and trace."),
        QStringLiteral("DIR"));
    QCommandLineOption cellOption(
        QStringLiteral("cell"),
        QStringLiteral("With --script: start the desktop as this macOS release with this hiding "
                       "technique (15, 26 or 27 : separators or engine), e.g. 27:engine."),
        QStringLiteral("SYSTEM:TECHNIQUE"));
    parser.addOptions({scriptOption, defaultsOption, logDirOption, demoDirOption, cellOption});
    parser.process(app);

    SandboxSession::Options options;
    options.defaultsPath = parser.value(defaultsOption);
    options.logDir = parser.value(logDirOption);

    if (parser.isSet(scriptOption)) {
        const QString path = parser.value(scriptOption);
        QFile file;
        const bool opened = path == u"-" ? file.open(stdin, QIODevice::ReadOnly)
                                         : (file.setFileName(path), file.open(QIODevice::ReadOnly));
        if (!opened) {
            std::fprintf(stderr, "cannot read the script %s: %s\n", qPrintable(path),
                         qPrintable(file.errorString()));
            return 2;
        }
        std::optional<ScriptRunner::Cell> cell;
        if (parser.isSet(cellOption)) {
            cell = parseCell(parser.value(cellOption));
            if (!cell) {
                std::fprintf(stderr, "--cell takes SYSTEM:TECHNIQUE, such as 27:engine\n");
                return 2;
            }
        }
        return runScript(QString::fromUtf8(file.readAll()), options, cell);
    }
    // Without a script the sandbox shows this machine's own statistics, location and network.
    options.realSystem = true;
    if (headless)
        return runDemo(options, parser.value(demoDirOption));
    return showWindow(options);
}
