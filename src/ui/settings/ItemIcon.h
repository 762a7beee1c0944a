#pragma once

#include <QImage>
#include <QWidget>

namespace ravlin {

// The small picture in front of a row: an item's captured image, a symbol, or,
// when neither is known, the first letter of its name on a soft tile.
class ItemIcon : public QWidget {
    Q_OBJECT
public:
    explicit ItemIcon(QWidget* parent = nullptr);

    void setImage(const QImage& image);
    void setSymbol(const QString& name, const QColor& colour);
    void setMonogram(const QString& name);

    QString symbol() const { return m_symbol; }
    QSize sizeHint() const override { return {22, 22}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
    QString m_symbol;
    QColor m_colour;
    QString m_letter;
};

} // namespace ravlin
