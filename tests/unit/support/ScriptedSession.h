#pragma once

#include "TestSupport.h"

#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptRunner.h"

#include <QTextStream>

namespace ravlin::test {

// A simulated Mac with Ravlin on it, driven by sandbox scripts in virtual time; what a script
// prints goes to `out`, its mistakes to `err`.
struct ScriptedSession {
    static sandbox::SandboxSession::Options options()
    {
        sandbox::SandboxSession::Options options;
        options.resourcesDir = resourcesDir();
        return options;
    }

    QString out, err;
    QTextStream o{&out}, e{&err};
    sandbox::SandboxSession session{options()};
    sandbox::ScriptRunner runner{session, o, e};

    ScriptedSession() { sandbox::registerAll(runner); }
    int run(const QString& script) { return runner.run(script); }
};

} // namespace ravlin::test
