#pragma once

namespace ravlin::sandbox {

class ScriptRunner;

// Each concern registers its commands and dump sections with the runner.
// start, restart, advance, background, dump, expect, print
void registerCoreCommands(ScriptRunner& runner);
void registerSettingsCommands(
    ScriptRunner& runner); // defaults, login, prefs, placement, language, locale
void registerCoreSections(
    ScriptRunner& runner); // time, process, preferences, defaults, language, login
// probe, location, forecast, stats, weather; the sections stats, weather and probe
void registerSysinfoCommands(ScriptRunner& runner);
// screen, app, item, extras, permission, launch, terminate, click, cmd-drag, selftest,
// scanner; the sections bar, events, activations, opened, scanner, tiles and logs.
void registerDiscoveryCommands(ScriptRunner& runner);
void registerDesktopCommands(ScriptRunner& runner);
void registerDiscoverySections(ScriptRunner& runner);
// engine, instance, hover, menu, hud, reopen; the sections controller, statusItems, menu, hud,
// engine.
void registerBarCommands(ScriptRunner& runner);
// tile, panel, screenshot; the section panel.
void registerPanelCommands(ScriptRunner& runner);
// layout; the sections layouts and newItems.
void registerLayoutCommands(ScriptRunner& runner);
// settings (open, close and the window's controls); the section settings.
void registerSettingsWindowCommands(ScriptRunner& runner);
// key, type, hotkey; the section shortcuts.
void registerKeyboardCommands(ScriptRunner& runner);
// when, upgrade; the section items.
void registerCellCommands(ScriptRunner& runner);
// update; the section updates.
void registerUpdateCommands(ScriptRunner& runner);
// welcome; the section welcome.
void registerWelcomeCommands(ScriptRunner& runner);
// user (the person's hands: typing, moving the pointer, holding a button or modifiers); the
// section user.
void registerUserCommands(ScriptRunner& runner);
// change, busy, watch, wifi, front, focus, timezone, until, rule, spacing, costs; the sections
// changes, rules, situation, spacing and costs.
void registerReactionCommands(ScriptRunner& runner);
// menus, scroll (the menu bar's reveal gestures); the section gestures.
void registerGestureCommands(ScriptRunner& runner);
// url (the URL scheme); the section automation.
void registerAutomationCommands(ScriptRunner& runner);
// Every command of the script language that a later part of the sandbox brings.
void registerPendingCommands(ScriptRunner& runner);

// All of the above.
void registerAll(ScriptRunner& runner);

} // namespace ravlin::sandbox
