#pragma once

#include <QComboBox>

namespace ravlin {

// A pop-up button in the light appearance: a white face with the chosen entry
// and an accent-coloured well holding the up-and-down arrows.
class PopupButton : public QComboBox {
    Q_OBJECT
public:
    explicit PopupButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    // Selects the entry whose data is value, without announcing it.
    void setCurrentDataQuietly(const QVariant& value);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ravlin
