#pragma once

namespace ravlin::sandbox {

class ScriptRunner;

// Each concern registers its commands and dump sections with the runner.
void registerCoreCommands(ScriptRunner& runner);     // start, advance, dump, expect, print
void registerSettingsCommands(ScriptRunner& runner); // defaults, login, prefs, placement, language, locale
void registerCoreSections(ScriptRunner& runner);     // time, process, preferences, defaults, language, login
// probe, location, forecast, stats, weather; the sections stats, weather and probe
void registerSysinfoCommands(ScriptRunner& runner);
// Every command of the script language that a later part of the sandbox brings.
void registerPendingCommands(ScriptRunner& runner);

// All of the above.
void registerAll(ScriptRunner& runner);

} // namespace ravlin::sandbox
