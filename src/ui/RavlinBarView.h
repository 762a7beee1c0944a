#pragma once

#include "PanelLayout.h"
#include "core/settings/TileStyle.h"
#include "core/tiles/PanelContent.h"

#include <QHash>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <optional>

namespace ravlin {

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
class RavlinBarView : public QWidget {
    Q_OBJECT
public:
    struct Sources {
        const PanelContent& content;
        TileModel& tiles;
        const SystemStats& stats;
        const WeatherService& weather;
        QString emptyText; // shown when there are no hidden items
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

    TileStyle style() const { return m_style; }
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

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    // The content's height: the panel is made this tall where the screen allows.
    int heightForWidth(int width) const override;
    double contentHeight() const { return m_layout.height; }

    // Scrolling, in points from the top of the content.
    double scrollOffset() const { return m_scroll; }
    double maximumScroll() const;
    void setScrollOffset(double offset);
    void scrollBy(double delta) { setScrollOffset(m_scroll + delta); }
    // Whether any part of the tile stands in the panel's visible area.
    bool isTileVisible(const QString& key) const;
    // The texts the tile drew the last time the panel was painted, as drawn; empty when
    // it was not painted (scrolled away, or the view never reached the screen).
    QStringList paintedTexts(const QString& key) const { return m_painted.value(key); }

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

private:
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
    QPointF toContent(const QPointF& viewPoint) const { return viewPoint + QPointF(0, m_scroll); }

    const PanelContent& m_content;
    TileModel& m_tiles;
    PanelRequest m_request;
    TileStyle m_style;
    QString m_emptyText;
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
