#pragma once

#include "PanelLayout.h"
#include "PanelPalette.h"
#include "TilePainter.h"
#include "core/settings/TileStyle.h"
#include "core/tiles/PanelContent.h"

#include <QHash>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <optional>

namespace ravlin {

class PaintCache;
class SystemStats;
class TileModel;
class WeatherService;
struct BarItem;
struct Stat;

// The root view of the tile panel: the weather header, the statistics, the
// hidden items by group and the permission tiles, in the chosen style. It redraws
// when the figures, the weather or the tile order change. A tile dragged onto an
// item tile of its own section is moved in front of it. When the panel is shorter
// than its content (a crowded bar on a small screen) the view scrolls, with the
// wheel, the trackpad and the keyboard; the sections keep their order.
//
// The keyboard works the whole panel: typing filters the tiles at once (a search
// field appears with the first key; Escape clears it, a second Escape closes the
// panel), the arrows move a focus ring through the tiles in reading order, Return
// or Space opens the focused tile as a click does, Tab reaches the settings gear.
//
// The bar style is the same view along a row as high as the menu bar (BarStyleLayout,
// BarStylePainter): it scrolls sideways, and everything else works as in the panel.
// The view's concerns live in files of their own: keyboard and search
// (RavlinBarView+Keyboard.cpp), scrolling (+Scrolling.cpp) and painting (+Painting.cpp).
class RavlinBarView : public QWidget {
    Q_OBJECT
public:
    // The settings gear, where keys of tiles are expected (focus, the sandbox).
    static inline const QString settingsKey = QStringLiteral("panel.settings");

    struct Sources {
        const PanelContent& content;
        TileModel& tiles;
        const SystemStats& stats;
        const WeatherService& weather;
        QString emptyText; // shown when there are no hidden items
        QString noMatchText; // shown when nothing matches what the user typed
        QString settingsName; // the gear's name for screen readers
        PaintCache* paintCache = nullptr; // kept by the panel across shows
        PanelPalette palette;             // light or dark, as the system is
        double barHeight = 24;            // the bar style is as high as the menu bar
    };

    RavlinBarView(const Sources& sources, PanelRequest request, TileStyle style,
                  QWidget* parent = nullptr);

    std::function<void(const BarItem&)> onActivate;
    std::function<void()> onFootnote;
    // The key under which the line under the tiles answers clicks.
    static inline const QString footnoteKey = QStringLiteral("footnote");
    std::function<void(const Stat&)> onStat;
    std::function<void()> onWeather;
    std::function<void(const QString& permissionKey)> onPermission;
    // The gear or ⌘, asks for the settings window.
    std::function<void()> onSettings;
    // Escape with nothing typed: the panel should close.
    std::function<void()> onDismiss;
    // The content's size changed while showing (a search narrowed or widened it).
    std::function<void()> onContentSizeChanged;

    TileStyle style() const { return m_style; }
    const PanelPalette& palette() const { return m_palette; }
    void setPalette(PanelPalette palette);
    bool isRightToLeft() const { return layoutDirection() == Qt::RightToLeft; }
    const std::vector<PanelSection>& sections() const { return m_sections; }
    const QString& footnote() const { return m_request.footnote; }
    const PanelLayout& panelLayout() const { return m_layout; }
    const PanelTile* tile(const QString& key) const;
    std::optional<QRectF> tileRect(const QString& key) const;

    // What a click on the tile, or a drop of one tile on another, does; false
    // when there is no such tile or the drop is not allowed.
    bool clickTile(const QString& key);
    bool dropTile(const QString& dragged, const QString& onto);
    // What the gear does.
    void pressSettings();

    // The search: what the user typed; setting it filters the tiles at once.
    const QString& query() const { return m_request.query; }
    void setQuery(const QString& query);
    // The keys of the tiles shown, in reading order.
    QStringList tileKeys() const;
    // The tile (or settingsKey) the focus ring stands on, while it shows.
    std::optional<QString> focusedKey() const { return m_focusShown ? m_focus : std::nullopt; }
    void setFocusedKey(const std::optional<QString>& key);
    // A line that stands where nothing matched, or where there are no hidden items.
    QString emptyText() const;
    // The accessible name of a tile, as a screen reader speaks it.
    QString accessibleNameOf(const PanelTile& tile) const;
    std::function<QString(const PanelTile&)> accessibleNamer;
    // The gear, pinned to the bottom of the panel (the trailing end of the bar) whatever the
    // scroll, in content coordinates (as tile rectangles are) at the present scroll offset.
    std::optional<QRectF> settingsRect() const;
    // The bar style's mark for the panel's note, beside the gear (content coordinates); other
    // styles write the note out under the content.
    std::optional<QRectF> footnoteMarkRect() const;
    const QString& settingsName() const { return m_settingsName; }

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    // The content's height: the panel is made this tall where the screen allows.
    int heightForWidth(int width) const override;
    double contentHeight() const { return m_layout.height; }
    // The bar style's row, as long as its content.
    bool isRow() const { return m_layout.horizontal; }
    double contentWidth() const { return isRow() ? m_layout.width : width(); }

    // Scrolling, in points from the top of the content (in the bar, from its leading end).
    double scrollOffset() const { return m_scroll; }
    double maximumScroll() const;
    void setScrollOffset(double offset);
    void scrollBy(double delta) { setScrollOffset(m_scroll + delta); }
    // Whether any part of the tile stands in the panel's visible area.
    bool isTileVisible(const QString& key) const;
    // The texts the tile drew the last time the panel was painted, as drawn; empty when
    // it was not painted (scrolled away, or the view never reached the screen).
    QStringList paintedTexts(const QString& key) const { return m_painted.value(key); }
    // Where a part of the content (tile rectangles, the gear) stands in the view now.
    QRectF toView(const QRectF& contentRect) const
    {
        return contentRect.translated(-contentOrigin());
    }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    // Tab stays inside the panel: it moves between the tiles and the gear.
    bool focusNextPrevChild(bool) override { return false; }

private:
    bool typeKey(QKeyEvent* event);
    bool navigationKey(QKeyEvent* event);
    void moveFocus(int key);
    void tabFocus(bool backwards);
    bool activateFocused();
    void scrollIntoView(const QRectF& rect);
    // The content point at the view's top left corner.
    QPointF contentOrigin() const;
    // The view's length along the scrolling axis, and the part the footer takes of it.
    double viewExtent() const { return isRow() ? width() : height(); }
    double contentExtent() const { return isRow() ? m_layout.width : m_layout.height; }
    // The part of the view the content shows in (all of it but the footer).
    QRectF viewport() const;
    std::optional<QString> neighbour(const QString& from, int key) const;
    void rebuild();
    void relayout();
    PanelLayout layoutFor(double width) const;
    std::optional<QString> keyAt(const QPointF& point) const;
    const PanelTile& tileOf(const PanelLayout::PlacedTile& placed) const;
    const PanelLayout::PlacedTile* placed(const QString& key) const;
    bool isItem(const QString& key) const;
    void paintDragged(QPainter& painter);
    void paintScroller(QPainter& painter);
    void setHover(std::optional<QString> key);
    QRectF visibleContent() const;
    // The footer's length along the axis, the part of the view it covers, and the gear
    // where it stands in the view.
    double footerExtent() const;
    QRectF footerArea() const;
    std::optional<QRectF> pinnedSettingsButton() const;
    std::optional<QRectF> pinnedFootnoteMark() const;
    void paintPanel(QPainter& painter, const QRectF& inSight);
    void paintRow(QPainter& painter, const QRectF& inSight);
    TileState stateOf(const QString& key, TileKind kind, const std::optional<QString>& under) const;
    void paintFooter(QPainter& painter);
    QPointF toContent(const QPointF& viewPoint) const { return viewPoint + contentOrigin(); }

    const PanelContent& m_content;
    TileModel& m_tiles;
    PanelRequest m_request;
    TileStyle m_style;
    QString m_emptyText;
    QString m_noMatchText;
    QString m_settingsName;
    PaintCache* m_paintCache;
    PanelPalette m_palette;
    double m_barHeight;
    std::optional<QString> m_focus;
    bool m_focusShown = false;
    std::vector<PanelSection> m_sections;
    PanelLayout m_layout;

    std::optional<QString> m_hover;
    std::optional<QString> m_pressed;
    QPointF m_pressPoint;
    QPointF m_pointer;
    bool m_dragging = false;
    double m_scroll = 0;
    QHash<QString, QStringList> m_painted;
};

} // namespace ravlin
