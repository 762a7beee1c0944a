#pragma once

#include "core/bar/ArrangeGuide.h"

#include <memory>

class QWidget;

namespace ravlin {

class ArrangeView;
class Screens;

// The arrange-mode guide: a floating panel with the instructions and a done
// button, hung below the main item on the screen that holds it.
class ArrangeHUD final : public ArrangeGuide {
public:
    explicit ArrangeHUD(Screens& screens);
    ~ArrangeHUD() override;

    void show(const ScreenRect& anchor) override;
    void hide() override;
    bool isVisible() const override;
    std::optional<ScreenRect> frame() const override;

    QWidget* window() const;

private:
    void makePanel();

    Screens& m_screens;
    std::unique_ptr<QWidget> m_panel;
    ArrangeView* m_view = nullptr;
};

} // namespace ravlin
