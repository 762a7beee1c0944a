#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/app/MenuBarServices.h"
#include "core/bar/MoveEngine.h"
#include "core/discovery/CaptureEngine.h"
#include "core/discovery/ScannerModel.h"
#include "platform/sim/SimDesktop.h"

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

// Staged left of the main item when the bar has one, as the full rebuild stages it.
void captureSelfTest(CommandContext& c)
{
    std::optional<double> mainLeft;
    if (const auto main = c.session.desktop().placedByTitle(QStringLiteral("Ravlin.Main")))
        mainLeft = main->frame.x;
    CaptureEngine& engine = c.session.app().menuBar().captureEngine();
    const CaptureEngine::Stage stage = engine.stageLeftOf(mainLeft);
    engine.runSelfTest(stage.stageX, stage.menuBarY, stage.thresholdX);
}

void selftestCommand(CommandContext& c)
{
    const QString which = c.need(1, QStringLiteral("capture or move"));
    if (which == u"capture")
        captureSelfTest(c);
    else if (which == u"move")
        c.session.app().menuBar().moveEngine().runSelfTest();
    else
        c.fail(QStringLiteral("selftest knows capture and move, not %1").arg(which));
    c.session.scheduler().runDue();
}

// What the settings window does when it opens: both lists of the scanner read afresh.
void scannerCommand(CommandContext& c)
{
    if (c.word(1) != u"refresh")
        c.fail(QStringLiteral("scanner knows only: scanner refresh"));
    ScannerModel& model = c.session.app().scannerModel();
    model.refresh();
    model.refreshMenuBarApps();
}

} // namespace

void registerDiscoveryCommands(ScriptRunner& runner)
{
    registerDesktopCommands(runner);
    registerDiscoverySections(runner);
    runner.addCommand(QStringLiteral("selftest"), Phase::AfterStart, selftestCommand);
    runner.addCommand(QStringLiteral("scanner"), Phase::AfterStart, scannerCommand);
}

} // namespace ravlin::sandbox
