#pragma once

#include "core/settings/KeyChord.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace ravlin {

// Records a keyboard shortcut the way the system's settings do: a click starts
// recording, the next chord pressed is offered to `onRecorded`, Escape cancels and
// Delete (⌫) while recording chooses none. The small clear button beside the
// chord also chooses none. Presses of modifiers alone only show what is held.
class ShortcutField : public QWidget {
    Q_OBJECT
public:
    struct Texts {
        QString record;    // "Record Shortcut"
        QString recording; // "Type shortcut…"
        QString none;      // "None"
    };

    explicit ShortcutField(Texts texts, QWidget* parent = nullptr);

    void setChord(const std::optional<KeyChord>& chord);
    // Narrower where a row holds other controls too.
    void setFieldWidth(int width);
    const std::optional<KeyChord>& chord() const { return m_chord; }
    bool isRecording() const { return m_recording; }
    void startRecording();
    void cancelRecording();
    // What the clear button does: the user chooses no shortcut.
    void clear();
    // What the field shows now.
    QString shownText() const;
    // A chord pressed while recording (nothing: the user chose none).
    std::function<void(const std::optional<KeyChord>&)> onRecorded;
    // Recording began or ended.
    std::function<void(bool recording)> onRecordingChanged;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    // A window closed or rebuilt (a new language) under a recording field ends the recording,
    // which gives the shortcuts back; no focus change says so when the window just goes.
    void hideEvent(QHideEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    QRectF clearButtonRect() const;
    void finish(const std::optional<KeyChord>& chord);
    void setRecording(bool recording);

    Texts m_texts;
    std::optional<KeyChord> m_chord;
    bool m_recording = false;
    QString m_held; // the modifiers held while recording
    int m_width;
};

} // namespace ravlin
