#pragma once

#include <QWidget>

class QVBoxLayout;

namespace ravlin {

class LanguageManager;
class SettingsColumn;
class SettingsGroup;
class WelcomeGuide;

// The welcome window's content, drawn anew from the guide whenever what it says changes: the
// introduction (what Ravlin does, the two permissions with their state and the way to grant
// each, the global shortcut, launch at login), or the page with the way back to an icon the
// system switched off.
class WelcomeView : public QWidget {
    Q_OBJECT
public:
    static constexpr int windowWidth = 520;

    WelcomeView(WelcomeGuide& guide, const LanguageManager& language, QWidget* parent = nullptr);

    void rebuild();

Q_SIGNALS:
    // The user closed the window.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildIntroduction(SettingsColumn& column);
    void buildItemNotShown(SettingsColumn& column);
    void addHeader(SettingsColumn& column, const QString& title, const QString& text);
    void addPermissionRow(SettingsGroup* group, const QString& name, const QString& symbol,
                          const QString& titleKey, bool granted);
    void addShortcutRow(SettingsGroup* group);
    QWidget* footer();
    QString L(const QString& key) const;

    WelcomeGuide& m_guide;
    const LanguageManager& m_language;
    QVBoxLayout* m_layout;
    QWidget* m_content = nullptr;
};

} // namespace ravlin
