#pragma once

#include "ToggleSwitch.h"

namespace ravlin {

// The small bell beside an item's placement: on, Ravlin shows the item when it changes while
// hidden. A switch underneath (keyboard, screen readers and scripts use it as one), drawn as
// a bell that lights up in the accent colour.
class WatchButton : public ToggleSwitch {
    Q_OBJECT
public:
    explicit WatchButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ravlin
