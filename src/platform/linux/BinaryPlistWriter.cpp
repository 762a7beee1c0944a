#include "BinaryPlistWriter.h"

#include <cstring>
#include <limits>

namespace ravlin {
namespace {

enum Type { Simple = 0x0, Integer = 0x1, Real = 0x2, Date = 0x3, Data = 0x4, AsciiString = 0x5,
            Utf16String = 0x6, Uid = 0x8, Array = 0xA, Dict = 0xD };

// Bytes needed for a number up to `largest`: 1, 2, 4 or 8.
int widthFor(std::uint64_t largest)
{
    if (largest <= 0xff)
        return 1;
    if (largest <= 0xffff)
        return 2;
    if (largest <= 0xffffffffULL)
        return 4;
    return 8;
}

int log2Width(int width)
{
    return width == 1 ? 0 : width == 2 ? 1 : width == 4 ? 2 : width == 8 ? 3 : 4;
}

std::uint64_t bitsOf(double d)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &d, sizeof bits);
    return bits;
}

bool isAscii(const QString& text)
{
    for (QChar c : text)
        if (c.unicode() > 0x7f)
            return false;
    return true;
}

} // namespace

QByteArray BinaryPlistWriter::write(const PlistValue& root)
{
    BinaryPlistWriter writer;
    const PlistValue empty{PlistDict{}};
    writer.collect(root.isNull() ? empty : root);
    writer.m_refSize = widthFor(writer.m_objects.size());
    writer.m_out = QByteArrayLiteral("bplist00");
    std::vector<std::uint64_t> offsets;
    offsets.reserve(writer.m_objects.size());
    for (const Object& object : writer.m_objects) {
        offsets.push_back(std::uint64_t(writer.m_out.size()));
        writer.encode(object);
    }
    const std::uint64_t tableOffset = std::uint64_t(writer.m_out.size());
    const int offsetSize = widthFor(tableOffset);
    for (std::uint64_t offset : offsets)
        writer.bigEndian(offset, offsetSize);
    writer.m_out.append(6, '\0'); // unused, then the sort version
    writer.m_out.append(char(offsetSize));
    writer.m_out.append(char(writer.m_refSize));
    writer.bigEndian(writer.m_objects.size(), 8);
    writer.bigEndian(0, 8); // the top object is the first
    writer.bigEndian(tableOffset, 8);
    return writer.m_out;
}

// Objects are numbered in the order they are met, a container before what it holds. The
// depth of a tree that was read is bounded by the reader; the program's own values are flat.
std::uint64_t BinaryPlistWriter::collect(const PlistValue& value)
{
    const std::uint64_t index = m_objects.size();
    m_objects.push_back({&value, QString(), {}});
    std::vector<std::uint64_t> refs;
    if (const PlistArray* array = value.asArray()) {
        for (const PlistValue& element : *array)
            if (!element.isNull())
                refs.push_back(collect(element));
    } else if (const PlistDict* dict = value.asDict()) {
        std::vector<std::uint64_t> values;
        for (auto it = dict->cbegin(); it != dict->cend(); ++it) {
            if (it.value().isNull())
                continue;
            refs.push_back(collectKey(it.key()));
            values.push_back(collect(it.value()));
        }
        refs.insert(refs.end(), values.begin(), values.end());
    }
    m_objects[index].refs = std::move(refs);
    return index;
}

std::uint64_t BinaryPlistWriter::collectKey(const QString& key)
{
    m_objects.push_back({nullptr, key, {}});
    return m_objects.size() - 1;
}

void BinaryPlistWriter::encode(const Object& object)
{
    if (!object.value) {
        text(object.key);
        return;
    }
    const PlistValue& v = *object.value;
    switch (v.type()) {
    case PlistValue::Type::Null:
    case PlistValue::Type::Bool:
        m_out.append(char(v.asBool().value_or(false) ? 0x09 : 0x08));
        return;
    case PlistValue::Type::Integer: {
        const std::int64_t i = *v.asInteger();
        // Negative values take eight bytes; the shorter widths are read as unsigned.
        integer(std::uint64_t(i), i < 0 ? 8 : widthFor(std::uint64_t(i)));
        return;
    }
    case PlistValue::Type::Unsigned:
        integer(*v.asUnsigned(), 16);
        return;
    case PlistValue::Type::Real:
        m_out.append(char(Real << 4 | 3));
        bigEndian(bitsOf(*v.asDouble()), 8);
        return;
    case PlistValue::Type::Date:
        m_out.append(char(Date << 4 | 3));
        bigEndian(bitsOf(v.asPlistDate()->seconds), 8);
        return;
    case PlistValue::Type::Data: {
        const QByteArray data = *v.asData();
        marker(Data, std::uint64_t(data.size()));
        m_out.append(data);
        return;
    }
    case PlistValue::Type::String:
        text(*v.asString());
        return;
    case PlistValue::Type::Uid: {
        const std::uint64_t uid = v.asUid()->value;
        const int width = widthFor(uid);
        m_out.append(char(Uid << 4 | (width - 1)));
        bigEndian(uid, width);
        return;
    }
    case PlistValue::Type::Array:
    case PlistValue::Type::Dict: {
        const bool dict = v.isDict();
        marker(dict ? Dict : Array, dict ? object.refs.size() / 2 : object.refs.size());
        for (std::uint64_t ref : object.refs)
            bigEndian(ref, m_refSize);
        return;
    }
    }
}

// A type with a count: in the marker's low nibble below 15, else as an integer after it.
void BinaryPlistWriter::marker(int type, std::uint64_t count)
{
    if (count < 15) {
        m_out.append(char(type << 4 | int(count)));
        return;
    }
    m_out.append(char(type << 4 | 0xf));
    integer(count, widthFor(count));
}

// Sixteen bytes: a 128-bit value whose upper half is zero, as the system writes unsigned
// values above the signed 64-bit range.
void BinaryPlistWriter::integer(std::uint64_t value, int width)
{
    m_out.append(char(Integer << 4 | log2Width(width)));
    if (width == 16) {
        bigEndian(0, 8);
        width = 8;
    }
    bigEndian(value, width);
}

void BinaryPlistWriter::bigEndian(std::uint64_t value, int width)
{
    for (int shift = (width - 1) * 8; shift >= 0; shift -= 8)
        m_out.append(char((value >> shift) & 0xff));
}

// ASCII text as bytes, anything else as UTF-16 units, exactly as held (a lone surrogate too).
void BinaryPlistWriter::text(const QString& text)
{
    if (isAscii(text)) {
        marker(AsciiString, std::uint64_t(text.size()));
        m_out.append(text.toLatin1());
        return;
    }
    marker(Utf16String, std::uint64_t(text.size()));
    for (QChar c : text)
        bigEndian(c.unicode(), 2);
}

} // namespace ravlin
