#pragma once

#include "core/bar/ArrangeGuide.h"

#include <QString>

#include <memory>

class QWidget;

namespace ravlin {

class ArrangeView;
class LanguageManager;
class Screens;

// The arrange-mode guide: a floating panel with the instructions and a done
// button, hung below the main item on the screen that holds it. It is made
// afresh when the interface language changed since it was last shown.
class ArrangeHUD final : public ArrangeGuide {
public:
    ArrangeHUD(Screens& screens, const LanguageManager& language);
    ~ArrangeHUD() override;

    void show(const ScreenRect& anchor) override;
    void hide() override;
    bool isVisible() const override;
    std::optional<ScreenRect> frame() const override;

    QWidget* window() const;

private:
    void makePanel();

    Screens& m_screens;
    const LanguageManager& m_language;
    QString m_madeInLanguage;
    std::unique_ptr<QWidget> m_panel;
    ArrangeView* m_view = nullptr;
};

} // namespace ravlin
