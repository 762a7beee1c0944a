#include "PlistCodec.h"

#include "BinaryPlistReader.h"
#include "BinaryPlistWriter.h"
#include "XmlPlistScan.h"

#include <plist/plist.h>

#include <QTimeZone>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace ravlin::PlistCodec {
namespace {

struct PlistFree {
    void operator()(plist_t node) const { plist_free(node); }
};
using PlistPtr = std::unique_ptr<void, PlistFree>;

struct CFree {
    void operator()(char* p) const { std::free(p); } // libplist's strings are malloc'd
};
using CString = std::unique_ptr<char, CFree>;

// Whether containers nest more deeply than `limit` below `root`, found with a stack of our own.
// The scan of the text has refused such files already; this guards against any difference
// between how it and libplist read odd text.
bool nestsDeeperThan(plist_t root, int limit)
{
    struct Frame {
        plist_t node;
        void* iter = nullptr; // an array or a dictionary iterator, both malloc'd
    };
    std::vector<Frame> stack;
    bool tooDeep = false;
    auto enter = [&](plist_t node) {
        const plist_type type = plist_get_node_type(node);
        if (type != PLIST_ARRAY && type != PLIST_DICT)
            return;
        if (stack.size() >= size_t(limit)) {
            tooDeep = true;
            return;
        }
        Frame frame{node};
        if (type == PLIST_ARRAY)
            plist_array_new_iter(node, reinterpret_cast<plist_array_iter*>(&frame.iter));
        else
            plist_dict_new_iter(node, reinterpret_cast<plist_dict_iter*>(&frame.iter));
        stack.push_back(frame);
    };
    enter(root);
    while (!stack.empty() && !tooDeep) {
        const Frame& frame = stack.back();
        plist_t child = nullptr;
        if (plist_get_node_type(frame.node) == PLIST_ARRAY)
            plist_array_next_item(frame.node, frame.iter, &child);
        else
            plist_dict_next_item(frame.node, frame.iter, nullptr, &child);
        if (child) {
            enter(child);
        } else {
            std::free(frame.iter);
            stack.pop_back();
        }
    }
    for (const Frame& frame : stack)
        std::free(frame.iter);
    return tooDeep;
}

bool hasChildren(plist_t node)
{
    const plist_type type = plist_get_node_type(node);
    return (type == PLIST_ARRAY && plist_array_get_size(node) > 0) ||
           (type == PLIST_DICT && plist_dict_get_size(node) > 0);
}

// libplist frees a tree recursively, which a tree nested too deeply would overflow the stack
// with. Here children are taken off from the bottom up, each when it holds nothing more, so
// that every call of libplist's frees a single node.
void freeWithoutRecursion(plist_t root)
{
    std::vector<plist_t> stack{root};
    while (!stack.empty()) {
        plist_t node = stack.back();
        if (!hasChildren(node)) {
            stack.pop_back();
            continue;
        }
        if (plist_get_node_type(node) == PLIST_ARRAY) {
            plist_t child = plist_array_get_item(node, 0);
            if (hasChildren(child))
                stack.push_back(child);
            else
                plist_array_remove_item(node, 0);
            continue;
        }
        plist_dict_iter iter = nullptr;
        plist_dict_new_iter(node, &iter);
        char* rawKey = nullptr;
        plist_t child = nullptr;
        plist_dict_next_item(node, iter, &rawKey, &child);
        std::free(iter);
        CString key(rawKey);
        if (!key || !child)
            break; // cannot happen for a dictionary with items; never loop on it
        if (hasChildren(child))
            stack.push_back(child);
        else
            plist_dict_remove_item(node, key.get());
    }
    plist_free(root);
}

// libplist keeps whether an integer was written unsigned (above the signed range) or negative
// but offers no getter for it; its XML writer shows it, with or without a minus sign. Only
// integers whose bits read as negative need asking.
bool isUnsignedNode(plist_t node)
{
    char* xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(node, &xml, &length);
    const bool negative = xml && std::memchr(xml, '-', length) != nullptr &&
                          std::strstr(xml, "<integer>-") != nullptr;
    plist_to_xml_free(xml);
    return !negative;
}

// A node of an integer above the signed range: libplist makes one only from text.
plist_t unsignedNode(std::uint64_t value)
{
    const QByteArray xml = QByteArrayLiteral("<plist version=\"1.0\"><integer>") +
                           QByteArray::number(quint64(value)) +
                           QByteArrayLiteral("</integer></plist>");
    plist_t node = nullptr;
    plist_from_xml(xml.constData(), uint32_t(xml.size()), &node);
    return node;
}

// Recursion is safe here: the nesting has been checked before.
PlistValue fromNode(plist_t node)
{
    if (!node)
        return {};
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        uint8_t b = 0;
        plist_get_bool_val(node, &b);
        return bool(b);
    }
    case PLIST_UINT: {
        uint64_t u = 0;
        plist_get_uint_val(node, &u);
        if (std::int64_t(u) < 0 && isUnsignedNode(node))
            return PlistValue::fromUnsigned(u);
        return std::int64_t(u); // negative integers come back in two's complement
    }
    case PLIST_REAL: {
        double d = 0;
        plist_get_real_val(node, &d);
        return d;
    }
    case PLIST_STRING: {
        // The pointer form: the copying getter asserts on text with an embedded NUL.
        uint64_t length = 0;
        const char* text = plist_get_string_ptr(node, &length);
        return QString::fromUtf8(text ? text : "", text ? qsizetype(length) : 0);
    }
    case PLIST_DATA: {
        uint64_t length = 0;
        const char* data = plist_get_data_ptr(node, &length);
        return QByteArray(data ? data : "", data ? qsizetype(length) : 0);
    }
    case PLIST_DATE: {
        int32_t sec = 0, usec = 0;
        plist_get_date_val(node, &sec, &usec);
        return PlistDate{double(sec) + double(usec) / 1e6};
    }
    case PLIST_UID: {
        uint64_t u = 0;
        plist_get_uid_val(node, &u);
        return PlistUid{u};
    }
    case PLIST_ARRAY: {
        // Walked with an iterator: fetching items by index costs a walk from the first each time.
        PlistArray array;
        array.reserve(plist_array_get_size(node));
        plist_array_iter iter = nullptr;
        plist_array_new_iter(node, &iter);
        for (plist_t item = nullptr; plist_array_next_item(node, iter, &item), item;)
            array.push_back(fromNode(item));
        std::free(iter);
        return array;
    }
    case PLIST_DICT: {
        PlistDict dict;
        plist_dict_iter iter = nullptr;
        plist_dict_new_iter(node, &iter);
        while (iter) {
            char* rawKey = nullptr;
            plist_t value = nullptr;
            plist_dict_next_item(node, iter, &rawKey, &value);
            CString key(rawKey);
            if (!key)
                break;
            dict.insert(QString::fromUtf8(key.get()), fromNode(value));
        }
        std::free(iter);
        return dict;
    }
    default:
        return {};
    }
}

plist_t toNode(const PlistValue& value)
{
    switch (value.type()) {
    case PlistValue::Type::Null:
        return nullptr;
    case PlistValue::Type::Bool:
        return plist_new_bool(*value.asBool() ? 1 : 0);
    case PlistValue::Type::Integer:
        return plist_new_uint(uint64_t(*value.asInteger()));
    case PlistValue::Type::Unsigned:
        return unsignedNode(*value.asUnsigned());
    case PlistValue::Type::Uid:
        return plist_new_uid(value.asUid()->value);
    case PlistValue::Type::Real:
        return plist_new_real(*value.asDouble());
    case PlistValue::Type::String:
        return plist_new_string(value.asString()->toUtf8().constData());
    case PlistValue::Type::Date: {
        // XML dates hold whole seconds; a date with a fraction is written in binary instead.
        const double seconds = value.asPlistDate()->seconds;
        const double whole = std::isfinite(seconds) ? std::clamp(std::floor(seconds), -2e9, 2e9) : 0;
        return plist_new_date(int32_t(whole), int32_t(std::lround((seconds - whole) * 1e6)));
    }
    case PlistValue::Type::Data: {
        const QByteArray data = *value.asData();
        return plist_new_data(data.constData(), uint64_t(data.size()));
    }
    case PlistValue::Type::Array: {
        plist_t array = plist_new_array();
        for (const PlistValue& element : *value.asArray()) {
            if (plist_t child = toNode(element))
                plist_array_append_item(array, child);
        }
        return array;
    }
    case PlistValue::Type::Dict: {
        plist_t dict = plist_new_dict();
        const PlistDict& d = *value.asDict();
        for (auto it = d.cbegin(); it != d.cend(); ++it) {
            if (plist_t child = toNode(it.value()))
                plist_dict_set_item(dict, it.key().toUtf8().constData(), child);
        }
        return dict;
    }
    }
    return nullptr;
}

} // namespace

QDateTime referenceDate()
{
    return PlistValue::referenceDate();
}

// Text XML 1.0 can hold: tab, line feed and every character from space on, except lone
// surrogates and U+FFFE/U+FFFF. A carriage return is held but read back as a line feed.
bool xmlHolds(const QString& text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c < 0x20 && c != u'\t' && c != u'\n')
            return false;
        if (c == 0xFFFE || c == 0xFFFF)
            return false;
        if (QChar::isHighSurrogate(c) && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        else if (QChar::isSurrogate(c))
            return false;
    }
    return true;
}

// Whether writing XML would change a value: a date with a fraction of a second, a UID (XML
// readers see a dictionary), a real that is not finite, text XML cannot hold. Walked with a
// stack of its own.
bool xmlHoldsAll(const PlistValue& root)
{
    std::vector<const PlistValue*> pending{&root};
    while (!pending.empty()) {
        const PlistValue& value = *pending.back();
        pending.pop_back();
        switch (value.type()) {
        case PlistValue::Type::Date: {
            const double seconds = value.asPlistDate()->seconds;
            if (!std::isfinite(seconds) || seconds != std::floor(seconds) || std::fabs(seconds) > 2e9)
                return false;
            break;
        }
        case PlistValue::Type::Uid:
            return false;
        case PlistValue::Type::Real:
            if (!std::isfinite(*value.asDouble()))
                return false;
            break;
        case PlistValue::Type::String:
            if (!xmlHolds(*value.asString()))
                return false;
            break;
        case PlistValue::Type::Array:
            for (const PlistValue& element : *value.asArray())
                pending.push_back(&element);
            break;
        case PlistValue::Type::Dict:
            for (auto it = value.asDict()->cbegin(); it != value.asDict()->cend(); ++it) {
                if (it.value().isNull())
                    continue; // neither form writes it
                if (!xmlHolds(it.key()))
                    return false;
                pending.push_back(&it.value());
            }
            break;
        default:
            break;
        }
    }
    return true;
}

QByteArray encode(const PlistValue& value)
{
    return xmlHoldsAll(value) ? toXml(value) : BinaryPlistWriter::write(value);
}

QString nestingError()
{
    return QStringLiteral("its values are nested more than %1 levels deep").arg(maxNesting);
}

std::optional<PlistValue> parse(const QByteArray& bytes, QString* error, QStringList* warnings)
{
    const auto refuse = [error](const QString& reason) {
        if (error)
            *error = reason;
        return std::nullopt;
    };
    if (bytes.isEmpty())
        return refuse(QStringLiteral("empty file"));
    if (bytes.size() > 64 * 1024 * 1024)
        return refuse(QStringLiteral("file too large"));
    if (BinaryPlistReader::isBinary(bytes)) {
        BinaryPlistReader reader(bytes, maxNesting);
        std::optional<PlistValue> value = reader.read();
        if (!value)
            return refuse(reader.error());
        if (warnings)
            *warnings << reader.warnings();
        return value;
    }
    // XML never holds a NUL character, and libplist aborts on keys that contain one, so such
    // bytes are refused before it sees them.
    if (bytes.contains('\0'))
        return refuse(QStringLiteral("not a property list (it holds NUL bytes)"));
    const XmlPlistScan scan(bytes, maxNesting);
    if (scan.tooDeep())
        return refuse(nestingError());
    const QByteArray text = scan.clampedText();
    plist_t root = nullptr; // libplist leaves it untouched on some failures
    plist_from_xml(text.constData(), uint32_t(text.size()), &root);
    if (!root)
        return refuse(QStringLiteral("not a property list"));
    if (nestsDeeperThan(root, maxNesting)) {
        freeWithoutRecursion(root);
        return refuse(nestingError());
    }
    PlistPtr owner(root);
    if (warnings)
        *warnings << scan.warnings();
    return fromNode(root);
}

QByteArray toXml(const PlistValue& value)
{
    PlistPtr root(toNode(value));
    if (!root)
        root.reset(plist_new_dict());
    char* xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(root.get(), &xml, &length);
    QByteArray out(xml ? xml : "", xml ? qsizetype(length) : 0);
    plist_to_xml_free(xml);
    return out;
}

} // namespace ravlin::PlistCodec
