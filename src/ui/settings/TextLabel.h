#pragma once

#include <QLabel>

namespace ravlin {

// A label whose paragraphs run in the window's direction. A wrapping label
// otherwise takes its direction from its first letters, so a Hebrew sentence that
// begins with "Ravlin" would be laid out left to right with its words out of order.
class TextLabel : public QLabel {
    Q_OBJECT
public:
    explicit TextLabel(const QString& text, QWidget* parent = nullptr);

    // The text without the mark that fixes its direction.
    QString plainText() const;
    void setPlainText(const QString& text);
    // Names and licences keep the direction of their own letters.
    void setFollowsWindowDirection(bool follows);

protected:
    void changeEvent(QEvent* event) override;

private:
    QString m_text;
    bool m_followsWindow = true;
};

} // namespace ravlin
