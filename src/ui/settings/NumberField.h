#pragma once

#include <QWidget>

class QSpinBox;

namespace ravlin {

// A short number field with a stepper beside it, as the system pairs them. The
// value is announced when editing ends or a step is taken, not at each keystroke.
class NumberField : public QWidget {
    Q_OBJECT
public:
    NumberField(int minimum, int maximum, QWidget* parent = nullptr);

    int value() const;
    // Shows a value without announcing it (the window following an outside change).
    void setValueQuietly(int value);
    QSpinBox* spinBox() const { return m_spin; }

Q_SIGNALS:
    void valueChanged(int value);

protected:
    void changeEvent(QEvent* event) override;

private:
    QSpinBox* m_spin;
    QWidget* m_stepper;
};

} // namespace ravlin
