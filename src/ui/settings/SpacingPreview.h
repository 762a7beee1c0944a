#pragma once

#include <QWidget>

namespace ravlin {

// A strip of menu bar drawn with the spacing and selection padding being chosen: the same few
// items, the middle one highlighted as when its menu is open, so that the user sees what the
// numbers do before anything changes.
class SpacingPreview : public QWidget {
    Q_OBJECT
public:
    explicit SpacingPreview(QWidget* parent = nullptr);

    void setValues(int spacing, int padding);
    int spacing() const { return m_spacing; }
    int padding() const { return m_padding; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_spacing = 16;
    int m_padding = 16;
};

} // namespace ravlin
