#pragma once

#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <vector>

namespace ravlin {

// The accessibility interface's error codes that the core tells apart.
namespace AXError {
constexpr int success = 0;
constexpr int failure = -25200;
constexpr int illegalArgument = -25201;
constexpr int invalidElement = -25202;
constexpr int cannotComplete = -25204;
constexpr int attributeUnsupported = -25205;
constexpr int actionUnsupported = -25206;
constexpr int apiDisabled = -25211;
constexpr int noValue = -25212;
} // namespace AXError

// An accessibility element as the platform hands it out. Opaque to the core;
// copies share the platform's reference, which is released with the last copy.
class AXElement {
public:
    AXElement() = default;
    explicit AXElement(std::shared_ptr<const void> handle) : m_handle(std::move(handle)) {}

    bool isNull() const { return !m_handle; }
    const void* handle() const { return m_handle.get(); }

private:
    std::shared_ptr<const void> m_handle;
};

// An attribute's value, by the kinds the core cares about. Positions are in
// window-server coordinates, as the accessibility interface gives them.
struct AXValue {
    enum class Kind { Text, Element, ElementList, Point, Size, Other };
    Kind kind = Kind::Other;
    QString text;
    AXElement element;
    std::vector<AXElement> elements;
    QPointF point;
    QSizeF size;
};

// A call's error code and, on success, its result.
template <class T> struct AXResult {
    int error = AXError::failure;
    T value{};
    bool ok() const { return error == AXError::success; }
};

// The platform's accessibility interface, call for call.
class Accessibility {
public:
    virtual ~Accessibility() = default;

    virtual bool isProcessTrusted() = 0;
    // Shows the platform's prompt when the process is not yet trusted.
    virtual bool isProcessTrustedWithPrompt() = 0;

    virtual AXElement systemWideElement() = 0;
    virtual AXElement applicationElement(std::int32_t pid) = 0;
    // Hit test in window-server coordinates, passed as 32-bit floats as the platform takes them.
    virtual AXResult<AXElement> elementAtPosition(const AXElement& root, float x, float y) = 0;
    virtual AXResult<AXValue> copyAttributeValue(const AXElement& element,
                                                 const QString& attribute) = 0;
    virtual AXResult<QStringList> copyActionNames(const AXElement& element) = 0;
    // The error code itself: callers tell "cannot complete" from other failures.
    virtual int performAction(const AXElement& element, const QString& action) = 0;
    virtual AXResult<std::int32_t> pid(const AXElement& element) = 0;
    virtual int setMessagingTimeout(const AXElement& element, float seconds) = 0;
};

} // namespace ravlin
