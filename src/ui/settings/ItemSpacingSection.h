#pragma once

#include <QObject>
#include <QPointer>

class QLabel;
class QPushButton;

namespace ravlin {

class AppDelegate;
class NumberField;
class SettingsActions;
class SettingsGroup;
class SettingsPage;
class SettingsRow;
class SpacingPreview;

// The Menu Bar tab's control of the system's item spacing: the spacing between items and the
// selection padding, a preview of both, Apply, a compact preset and a reset to the system's
// default; then the honest note that other applications take the change when they restart,
// with the offer to restart those that can be, or to wait for the next login.
class ItemSpacingSection : public QObject {
    Q_OBJECT
public:
    ItemSpacingSection(AppDelegate& app, SettingsActions& actions, SettingsPage& page);

    // Re-reads what the system holds (the fields keep what the user typed but did not apply).
    void refresh();

private:
    void build(SettingsPage& page);
    QWidget* previewRow();
    void buildOffer(SettingsGroup& group);
    void fieldsChanged();
    void apply();
    void compact();
    void reset();
    void restartApps();
    void later();
    // After a change: who takes it when.
    void offerRestart();
    void showState();

    AppDelegate& m_app;
    SettingsActions& m_actions;
    SettingsPage& m_page;
    NumberField* m_spacing = nullptr;
    NumberField* m_padding = nullptr;
    SpacingPreview* m_preview = nullptr;
    SettingsRow* m_stateRow = nullptr;
    SettingsRow* m_offer = nullptr;
    QPushButton* m_restart = nullptr;
    bool m_edited = false;
};

} // namespace ravlin
