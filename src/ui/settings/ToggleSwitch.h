#pragma once

#include <QAbstractButton>

namespace ravlin {

// The on/off switch of the settings window, drawn like the system's small switch:
// an accent-coloured track when on, with the knob at the trailing end.
class ToggleSwitch : public QAbstractButton {
    Q_OBJECT
public:
    explicit ToggleSwitch(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    // Sets the state without announcing it (the window following an outside change).
    void setCheckedQuietly(bool on);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ravlin
