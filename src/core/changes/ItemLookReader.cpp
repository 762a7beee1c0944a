#include "ItemLookReader.h"

#include "core/discovery/ItemCapture.h"
#include "core/discovery/MenuBarReader.h"
#include "core/discovery/WindowListReader.h"
#include "core/tiles/BarItem.h"
#include "platform/WindowServer.h"

#include <QHash>

#include <cmath>

namespace ravlin {
namespace {

constexpr double sameFrameSlack = 1.5;

std::optional<WindowServerRect> frameOf(Accessibility& ax, const AXElement& element)
{
    const AXResult<AXValue> position = ax.copyAttributeValue(element, QStringLiteral("AXPosition"));
    const AXResult<AXValue> size = ax.copyAttributeValue(element, QStringLiteral("AXSize"));
    if (!position.ok() || position.value.kind != AXValue::Kind::Point || !size.ok() ||
        size.value.kind != AXValue::Kind::Size)
        return std::nullopt;
    return WindowServerRect{position.value.point.x(), position.value.point.y(),
                            size.value.size.width(), size.value.size.height()};
}

std::size_t digest(const QImage& image)
{
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    return qHashBits(argb.constBits(), std::size_t(argb.sizeInBytes()),
                     std::size_t(argb.width()) * 31 + std::size_t(argb.height()));
}

} // namespace

ItemLookReader::ItemLookReader(Accessibility& accessibility, WindowServer& windowServer,
                               const ItemCapture& capture, const MenuBarReader& reader)
    : m_accessibility(accessibility), m_windowServer(windowServer), m_capture(capture),
      m_reader(reader)
{}

void ItemLookReader::beginRound()
{
    m_frames.clear();
    m_owners.clear();
    if (!m_reader.capabilities().itemWindows)
        return;
    const auto windows =
        WindowListReader(m_windowServer).statusWindows(WindowListOption::AllWindows);
    for (const StatusWindow& w : windows.value_or(std::vector<StatusWindow>{})) {
        if (w.bounds)
            m_frames.insert(w.number, *w.bounds);
        if (w.pid)
            m_owners.insert(w.number, *w.pid);
    }
}

std::int32_t ItemLookReader::ownerOf(const BarItem& item)
{
    if (item.pid > 0)
        return item.pid;
    const std::uint32_t window = std::uint32_t(item.info.id);
    if (m_reader.capabilities().windowOwnersAreReal)
        return m_owners.value(window, 0);
    for (const StatusWindow& w :
         m_reader.statusWindows(WindowListOption::AllWindows).value_or(std::vector<StatusWindow>{}))
        if (w.number == window && w.pid)
            return *w.pid;
    return 0;
}

ItemLook ItemLookReader::look(const BarItem& item)
{
    ItemLook look;
    const bool windows = m_reader.capabilities().itemWindows;
    std::optional<WindowServerRect> frame;
    if (windows && item.info.id > 0 && m_frames.contains(std::uint32_t(item.info.id))) {
        frame = m_frames.value(std::uint32_t(item.info.id));
        look.size = QSizeF(frame->width, frame->height);
        // Off screen the window server answers with a single pixel: no picture then.
        if (frame->x >= 0)
            if (const std::optional<QImage> image = m_capture.image(item.info.id))
                look.picture = digest(*image);
    }
    const std::optional<AXElement> element = elementOf(item, frame);
    if (!element)
        return look;
    // An application that does not answer is asked nothing more this time: each question
    // would wait for it again.
    bool lost = false;
    look.title = text(*element, QStringLiteral("AXTitle"), &lost);
    if (look.title)
        look.description = text(*element, QStringLiteral("AXDescription"), &lost);
    if (look.description)
        look.value = text(*element, QStringLiteral("AXValue"), &lost);
    if (lost)
        m_elements.remove(item.key); // found anew next time
    return look;
}

std::optional<AXElement> ItemLookReader::elementOf(const BarItem& item,
                                                   const std::optional<WindowServerRect>& frame)
{
    if (const auto it = m_elements.constFind(item.key); it != m_elements.constEnd())
        return *it;
    std::optional<AXElement> found;
    if (!m_reader.capabilities().itemWindows)
        found = m_reader.elementFor(std::uint32_t(item.info.id));
    else if (frame)
        if (const std::int32_t pid = ownerOf(item); pid > 0)
            found = findInExtras(pid, *frame);
    if (found)
        m_elements.insert(item.key, *found);
    return found;
}

std::optional<AXElement> ItemLookReader::findInExtras(std::int32_t pid,
                                                      const WindowServerRect& frame)
{
    const AXElement application = m_accessibility.applicationElement(pid);
    m_accessibility.setMessagingTimeout(application, MenuBarReader::messagingTimeout);
    const AXResult<AXValue> extras =
        m_accessibility.copyAttributeValue(application, QStringLiteral("AXExtrasMenuBar"));
    if (!extras.ok() || extras.value.kind != AXValue::Kind::Element)
        return std::nullopt;
    const AXResult<AXValue> children =
        m_accessibility.copyAttributeValue(extras.value.element, QStringLiteral("AXChildren"));
    if (!children.ok() || children.value.kind != AXValue::Kind::ElementList)
        return std::nullopt;
    for (const AXElement& child : children.value.elements) {
        const std::optional<WindowServerRect> f = frameOf(m_accessibility, child);
        if (f && std::abs(f->x - frame.x) <= sameFrameSlack &&
            std::abs(f->width - frame.width) <= sameFrameSlack)
            return child;
    }
    return std::nullopt;
}

std::optional<QString> ItemLookReader::text(const AXElement& element, const QString& attribute,
                                            bool* lost)
{
    const AXResult<AXValue> value = m_accessibility.copyAttributeValue(element, attribute);
    if (value.ok())
        return value.value.kind == AXValue::Kind::Text ? value.value.text : QString();
    if (value.error == AXError::attributeUnsupported || value.error == AXError::noValue)
        return QString();
    *lost = value.error == AXError::invalidElement;
    return std::nullopt;
}

} // namespace ravlin
