#pragma once

#include <QColor>
#include <QFont>
#include <QString>

class QLabel;
class QPainter;
class QRectF;
class QWidget;

// The settings window's light appearance: the colours, type sizes and measures
// of a calm macOS preferences window. Sizes are macOS points (one logical pixel).
namespace ravlin::SettingsStyle {

inline constexpr int windowWidth = 580;
// A page taller than its screen leaves room for scrolls; this much of the screen's
// visible height stays free for the title bar and a margin above and below.
inline constexpr int screenAllowance = 28 + 2 * 24;
inline constexpr int pageMargin = 20;
inline constexpr int groupRadius = 9;
inline constexpr int rowInset = 12;
inline constexpr int rowMinHeight = 40;

// One colour a line reads best.
// clang-format off
inline QColor windowBackground() { return QColor(240, 240, 242); }
inline QColor toolbarBackground() { return QColor(250, 250, 251); }
inline QColor hairline() { return QColor(0, 0, 0, 28); }
inline QColor groupFill() { return QColor(255, 255, 255, 235); }
inline QColor groupBorder() { return QColor(0, 0, 0, 18); }
inline QColor separator() { return QColor(0, 0, 0, 22); }
inline QColor primaryText() { return QColor(0, 0, 0, 218); }
inline QColor secondaryText() { return QColor(0, 0, 0, 128); }
inline QColor tertiaryText() { return QColor(0, 0, 0, 66); }
inline QColor accent() { return QColor(0, 122, 255); }
inline QColor controlTrack() { return QColor(0, 0, 0, 22); }
inline QColor selectedTab() { return QColor(0, 0, 0, 16); }
inline QColor symbolGrey() { return QColor(110, 110, 115); }
// clang-format on

QFont bodyFont();    // row titles and controls
QFont captionFont(); // one-line explanations and notes
QFont headingFont(); // the title above a group
QFont smallFont();   // the toolbar's tab titles, segmented controls

// The keyboard focus ring around a control's shape (drawn only while it has the focus).
void paintFocusRing(QPainter& painter, const QWidget& widget, const QRectF& shape, double radius);

// A label in one of the window's text styles (a TextLabel, running in the
// window's direction); wrapping labels break at the window's width, never widen it.
QLabel* label(const QString& text, const QFont& font, const QColor& color, QWidget* parent,
              bool wrap = false);
void setTextColor(QWidget* widget, const QColor& color);

} // namespace ravlin::SettingsStyle
