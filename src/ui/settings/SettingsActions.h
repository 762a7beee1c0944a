#pragma once

#include "core/settings/ItemPlacement.h"
#include "core/settings/ItemSpacing.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace ravlin {

class AppDelegate;
class AppRestarter;

// What the settings window's controls ask of the rest of the program, in one
// place: the controls stay plain, and every path to the core is tested here.
class SettingsActions {
public:
    static inline const QString controlCentreURL =
        QStringLiteral("x-apple.systempreferences:com.apple.ControlCenter-Settings.extension");

    explicit SettingsActions(AppDelegate& app);
    ~SettingsActions();

    // Whether items are hidden application by application (the system's assessment mode),
    // so that an item in the bar keeps the other items of its application there too.
    bool hidesWholeApplications() const;
    // Bar and panel move the item across the separator; off keeps it hidden and out of the panel.
    void place(const QString& key, ItemPlacement placement);
    bool canArrange() const;
    void arrange();
    // Looks at every item of the bar again.
    void rescan();
    bool canChangeSpacing() const;
    // The system's item spacing, which Ravlin records before it changes it and gives back.
    ItemSpacing itemSpacing() const;
    bool applySpacing(int spacing, int padding);
    bool resetSpacing();
    // Restarts menu-bar applications so that they take a new spacing now.
    AppRestarter& restarter();
    void openControlCentreSettings();
    void pickLanguage(const QString& code);

    // Where items seen for the first time go.
    void setNewItemPlacement(ItemPlacement placement);
    // Named layouts; false (with a log line) when there is no controller or no such layout.
    // The layouts switched to when a display is connected or on battery are two rules.
    QStringList layoutNames() const;
    QString activeLayout() const;
    bool saveLayout(const QString& name);
    bool switchLayout(const QString& name);
    bool deleteLayout(const QString& name);
    bool exportLayout(const QString& name, const QString& path);
    // The imported layout's name, empty when the file is not one.
    QString importLayout(const QString& path);
    QString layoutOnDisplay() const;
    QString layoutOnBattery() const;
    void setLayoutOnDisplay(const QString& name);
    void setLayoutOnBattery(const QString& name);

private:
    AppDelegate& m_app;
    std::unique_ptr<AppRestarter> m_restarter;
};

} // namespace ravlin
