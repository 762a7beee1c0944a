#pragma once

#include <QWidget>

#include <functional>

class QPushButton;

namespace ravlin {

// The content of the arrange-mode guide: title, instruction, legend and the done
// button. Its texts are fixed German on purpose, like the other arrange texts.
class ArrangeView : public QWidget {
    Q_OBJECT
public:
    explicit ArrangeView(QWidget* parent = nullptr);

    static constexpr int contentWidth = 340;
    QSize sizeHint() const override;
    int heightForWidth(int width) const override;

    std::function<void()> onDone;
    QPushButton* doneButton() const { return m_done; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPushButton* m_done;
};

} // namespace ravlin
