#pragma once

#include <QWidget>

#include <functional>

class QPushButton;

namespace ravlin {

class LanguageManager;

// The content of the arrange-mode guide: title, instruction, legend and the done
// button, in the interface language and its reading direction.
class ArrangeView : public QWidget {
    Q_OBJECT
public:
    explicit ArrangeView(const LanguageManager& language, QWidget* parent = nullptr);

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
