#include "PlistCodec.h"

#include <plist/plist.h>

#include <QTimeZone>

#include <cstdlib>
#include <memory>

namespace ravlin::PlistCodec {
namespace {

// Property-list dates count seconds from 2001-01-01 UTC.
const QDateTime referenceDate(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);

struct PlistFree {
    void operator()(plist_t node) const { plist_free(node); }
};
using PlistPtr = std::unique_ptr<void, PlistFree>;

struct CFree {
    void operator()(char* p) const { std::free(p); } // libplist's strings are malloc'd
};
using CString = std::unique_ptr<char, CFree>;

PlistValue fromNode(plist_t node, int depth)
{
    if (!node || depth > 512)
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
        return referenceDate.addMSecs(qint64(sec) * 1000 + usec / 1000);
    }
    case PLIST_UID: {
        uint64_t u = 0;
        plist_get_uid_val(node, &u);
        return std::int64_t(u);
    }
    case PLIST_ARRAY: {
        PlistArray array;
        const uint32_t n = plist_array_get_size(node);
        array.reserve(n);
        for (uint32_t i = 0; i < n; ++i)
            array.push_back(fromNode(plist_array_get_item(node, i), depth + 1));
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
            dict.insert(QString::fromUtf8(key.get()), fromNode(value, depth + 1));
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
    case PlistValue::Type::Real:
        return plist_new_real(*value.asDouble());
    case PlistValue::Type::String:
        return plist_new_string(value.asString()->toUtf8().constData());
    case PlistValue::Type::Date: {
        const qint64 ms = referenceDate.msecsTo(*value.asDate());
        return plist_new_date(int32_t(ms / 1000), int32_t((ms % 1000) * 1000));
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

std::optional<PlistValue> parse(const QByteArray& bytes, QString* error)
{
    if (bytes.size() > 64 * 1024 * 1024 || bytes.isEmpty()) {
        if (error)
            *error =
                bytes.isEmpty() ? QStringLiteral("empty file") : QStringLiteral("file too large");
        return std::nullopt;
    }
    // Only XML is read. XML never holds a NUL character, and libplist aborts on
    // keys that contain one, so such bytes are refused before it sees them.
    if (bytes.contains('\0')) {
        if (error)
            *error = QStringLiteral("not an XML property list (it holds NUL bytes)");
        return std::nullopt;
    }
    plist_t root = nullptr; // libplist leaves it untouched on some failures
    plist_from_xml(bytes.constData(), uint32_t(bytes.size()), &root);
    PlistPtr owner(root);
    if (!root) {
        if (error)
            *error = QStringLiteral("not a property list");
        return std::nullopt;
    }
    return fromNode(root, 0);
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
