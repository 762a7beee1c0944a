#include "BinaryPlistReader.h"

#include "PlistCodec.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace ravlin {
namespace {

constexpr int trailerSize = 32;
constexpr int headerSize = 8;

enum Type {
    Simple = 0x0,
    Integer = 0x1,
    Real = 0x2,
    Date = 0x3,
    Data = 0x4,
    AsciiString = 0x5,
    Utf16String = 0x6,
    Uid = 0x8,
    Array = 0xA,
    Set = 0xC,
    Dict = 0xD,
};

bool isContainer(int type)
{
    return type == Array || type == Set || type == Dict;
}

bool hasCount(int type)
{
    return type == Data || type == AsciiString || type == Utf16String || isContainer(type);
}

// A sixteen-byte integer as written: decimal when it is a plain unsigned 64-bit value, else hex.
QString wideText(std::uint64_t high, std::uint64_t low)
{
    if (high == 0)
        return QString::number(low);
    return QStringLiteral("0x%1%2")
        .arg(high, 16, 16, QLatin1Char('0'))
        .arg(low, 16, 16, QLatin1Char('0'));
}

} // namespace

BinaryPlistReader::BinaryPlistReader(const QByteArray& bytes, int maxNesting)
    : m_bytes(bytes), m_maxNesting(maxNesting)
{}

std::optional<PlistValue> BinaryPlistReader::read()
{
    if (!readTrailer() || !checkGraph())
        return std::nullopt;
    return build(m_top, QString());
}

bool BinaryPlistReader::fail(const QString& reason)
{
    if (m_error.isEmpty())
        m_error = reason;
    return false;
}

std::uint64_t BinaryPlistReader::bigEndian(std::uint64_t offset, int bytes) const
{
    std::uint64_t value = 0;
    for (int i = 0; i < bytes; ++i)
        value = (value << 8) | std::uint8_t(m_bytes[qsizetype(offset) + i]);
    return value;
}

// The trailer says how wide offsets and references are, how many objects there are, which is
// the top one and where the offset table starts; every object is then decoded once.
bool BinaryPlistReader::readTrailer()
{
    const auto size = std::uint64_t(m_bytes.size());
    if (size < headerSize + 1 + trailerSize)
        return fail(QStringLiteral("a binary property list too short to hold anything"));
    const std::uint64_t trailer = size - trailerSize;
    m_offsetSize = std::uint8_t(m_bytes[qsizetype(trailer) + 6]);
    m_refSize = std::uint8_t(m_bytes[qsizetype(trailer) + 7]);
    m_objectCount = bigEndian(trailer + 8, 8);
    m_top = bigEndian(trailer + 16, 8);
    m_tableOffset = bigEndian(trailer + 24, 8);
    if (m_offsetSize < 1 || m_offsetSize > 8 || m_refSize < 1 || m_refSize > 8 ||
        m_objectCount == 0 || m_top >= m_objectCount || m_tableOffset <= headerSize ||
        m_tableOffset >= trailer ||
        m_objectCount > (trailer - m_tableOffset) / std::uint64_t(m_offsetSize))
        return fail(QStringLiteral("a binary property list with a broken trailer"));
    if (m_objectCount > maxValues)
        return fail(QStringLiteral("a binary property list of more than %1 values").arg(maxValues));
    m_objects.resize(m_objectCount);
    for (std::uint64_t i = 0; i < m_objectCount; ++i) {
        if (!decode(i, m_objects[i]))
            return false;
    }
    return true;
}

bool BinaryPlistReader::decode(std::uint64_t index, Object& object)
{
    const std::uint64_t offset =
        bigEndian(m_tableOffset + index * std::uint64_t(m_offsetSize), m_offsetSize);
    if (offset < headerSize || offset >= m_tableOffset)
        return fail(
            QStringLiteral("a binary property list whose object %1 lies outside it").arg(index));
    const std::uint8_t marker = std::uint8_t(m_bytes[qsizetype(offset)]);
    object.type = marker >> 4;
    object.info = marker & 0x0f;
    object.count = std::uint64_t(object.info);
    object.payload = offset + 1;
    if (hasCount(object.type) && object.info == 0x0f) {
        if (object.payload >= m_tableOffset)
            return fail(QStringLiteral("a binary property list cut short"));
        const std::uint8_t countMarker = std::uint8_t(m_bytes[qsizetype(object.payload)]);
        const int width = 1 << (countMarker & 0x0f);
        if ((countMarker >> 4) != Integer || width > 8 ||
            object.payload + 1 + std::uint64_t(width) > m_tableOffset)
            return fail(QStringLiteral("a binary property list with a broken length"));
        object.count = bigEndian(object.payload + 1, width);
        object.payload += 1 + std::uint64_t(width);
    }
    if (object.count > m_tableOffset)
        return fail(QStringLiteral("a binary property list with a broken length"));
    std::uint64_t length = 0;
    switch (object.type) {
    case Simple:
        break;
    case Integer:
        if (object.info > 4)
            return fail(QStringLiteral("a binary property list with an integer of odd width"));
        length = std::uint64_t(1) << object.info;
        break;
    case Real:
        if (object.info != 2 && object.info != 3)
            return fail(QStringLiteral("a binary property list with a real of odd width"));
        length = std::uint64_t(1) << object.info;
        break;
    case Date:
        if (object.info != 3)
            return fail(QStringLiteral("a binary property list with a date of odd width"));
        length = 8;
        break;
    case Data:
    case AsciiString:
        length = object.count;
        break;
    case Utf16String:
        length = object.count * 2;
        break;
    case Uid:
        if (object.info > 7)
            return fail(QStringLiteral("a binary property list with an identifier of odd width"));
        length = std::uint64_t(object.info) + 1;
        break;
    case Array:
    case Set:
        length = object.count * std::uint64_t(m_refSize);
        break;
    case Dict:
        length = object.count * 2 * std::uint64_t(m_refSize);
        break;
    default:
        return fail(QStringLiteral("a binary property list with an object of unknown kind"));
    }
    if (object.payload + length > m_tableOffset)
        return fail(
            QStringLiteral("a binary property list whose object %1 runs past its end").arg(index));
    return true;
}

std::uint64_t BinaryPlistReader::childCount(const Object& object) const
{
    if (!isContainer(object.type))
        return 0;
    return object.type == Dict ? object.count * 2 : object.count;
}

bool BinaryPlistReader::childRef(const Object& object, std::uint64_t position, std::uint64_t& index)
{
    index = bigEndian(object.payload + position * std::uint64_t(m_refSize), m_refSize);
    if (index >= m_objectCount)
        return fail(QStringLiteral("a binary property list that refers to a missing object"));
    return true;
}

// A walk over the object graph with a stack of its own: each object's nesting and the number of
// values it stands for once shared objects are copied are worked out once and remembered.
bool BinaryPlistReader::checkGraph()
{
    enum State : std::uint8_t { Unseen, Open, Done };
    std::vector<State> state(m_objectCount, Unseen);
    std::vector<int> nesting(m_objectCount, 0);
    std::vector<std::uint64_t> values(m_objectCount, 0);
    struct Frame {
        std::uint64_t index;
        std::uint64_t next = 0;
        int deepestChild = 0;
        std::uint64_t values = 1;
    };
    std::vector<Frame> stack;
    const QString tooDeep = PlistCodec::nestingError();
    const QString tooMany =
        QStringLiteral("a binary property list that stands for more than %1 values").arg(maxValues);

    auto finishLeaf = [&](std::uint64_t index) {
        state[index] = Done;
        values[index] = 1;
    };
    auto enter = [&](std::uint64_t index) {
        if (!isContainer(m_objects[index].type)) {
            finishLeaf(index);
            return true;
        }
        if (stack.size() >= size_t(m_maxNesting))
            return fail(tooDeep);
        state[index] = Open;
        stack.push_back({index});
        return true;
    };
    auto addChild = [&](Frame& frame, std::uint64_t child) {
        if (stack.size() + size_t(nesting[child]) > size_t(m_maxNesting))
            return fail(tooDeep);
        frame.deepestChild = std::max(frame.deepestChild, nesting[child]);
        frame.values += values[child];
        return frame.values <= maxValues || fail(tooMany);
    };

    if (!enter(m_top))
        return false;
    while (!stack.empty()) {
        Frame& frame = stack.back();
        const Object& object = m_objects[frame.index];
        if (frame.next == childCount(object)) {
            nesting[frame.index] = frame.deepestChild + 1;
            values[frame.index] = frame.values;
            state[frame.index] = Done;
            const std::uint64_t done = frame.index;
            stack.pop_back();
            if (!stack.empty() && !addChild(stack.back(), done))
                return false;
            continue;
        }
        const std::uint64_t position = frame.next++;
        std::uint64_t child = 0;
        if (!childRef(object, position, child))
            return false;
        const int childType = m_objects[child].type;
        if (object.type == Dict && position < object.count && childType != AsciiString &&
            childType != Utf16String)
            return fail(QStringLiteral("a binary property list with a key that is not text"));
        if (state[child] == Open)
            return fail(QStringLiteral("a binary property list that holds itself"));
        if (state[child] == Done) {
            if (!addChild(frame, child))
                return false;
        } else if (!isContainer(childType)) {
            finishLeaf(child);
            if (!addChild(frame, child))
                return false;
        } else if (!enter(child)) {
            return false;
        }
    }
    return true;
}

// Recursion is safe here: checkGraph has bounded the nesting and the number of values.
PlistValue BinaryPlistReader::build(std::uint64_t index, const QString& path)
{
    const Object& object = m_objects[index];
    const auto at = [&](std::uint64_t offset) { return m_bytes.constData() + offset; };
    switch (object.type) {
    case Simple:
        if (object.info == 0x8 || object.info == 0x9)
            return object.info == 0x9;
        return {};
    case Integer:
        return integer(object, path);
    case Real:
        if (object.info == 2) {
            const auto bits = std::uint32_t(bigEndian(object.payload, 4));
            float f = 0;
            std::memcpy(&f, &bits, sizeof f);
            return double(f);
        } else {
            const std::uint64_t bits = bigEndian(object.payload, 8);
            double d = 0;
            std::memcpy(&d, &bits, sizeof d);
            return d;
        }
    case Date: {
        const std::uint64_t bits = bigEndian(object.payload, 8);
        double seconds = 0;
        std::memcpy(&seconds, &bits, sizeof seconds);
        return PlistDate{seconds};
    }
    case Data:
        return QByteArray(at(object.payload), qsizetype(object.count));
    case AsciiString:
    case Utf16String:
        return text(object);
    case Uid:
        return PlistUid{bigEndian(object.payload, object.info + 1)};
    case Array:
    case Set: {
        PlistArray array;
        array.reserve(size_t(object.count));
        for (std::uint64_t i = 0; i < object.count; ++i) {
            std::uint64_t child = 0;
            childRef(object, i, child);
            array.push_back(build(child, path + u'/' + QString::number(i)));
        }
        return array;
    }
    case Dict: {
        PlistDict dict;
        for (std::uint64_t i = 0; i < object.count; ++i) {
            std::uint64_t key = 0, value = 0;
            childRef(object, i, key);
            childRef(object, object.count + i, value);
            const QString name = *text(m_objects[key]).asString();
            dict.insert(name, build(value, path + u'/' + name));
        }
        return dict;
    }
    }
    return {};
}

// Widths of one, two and four bytes are unsigned, eight bytes signed, and sixteen bytes a signed
// 128-bit value (the system writes unsigned 64-bit values above the signed range so, and they
// read as the unsigned values they are).
PlistValue BinaryPlistReader::integer(const Object& object, const QString& path)
{
    const int width = 1 << object.info;
    if (width < 16)
        return std::int64_t(bigEndian(object.payload, width));
    const std::uint64_t high = bigEndian(object.payload, 8);
    const std::uint64_t low = bigEndian(object.payload + 8, 8);
    constexpr std::uint64_t signBit = std::uint64_t(1) << 63;
    if (high == 0)
        return PlistValue::fromUnsigned(low);
    if (high == ~std::uint64_t(0) && low >= signBit)
        return std::int64_t(low);
    const std::int64_t clamped = (high & signBit) ? std::numeric_limits<std::int64_t>::min()
                                                  : std::numeric_limits<std::int64_t>::max();
    m_warnings << QStringLiteral(
                      "the integer %1 at %2 lies beyond the 64-bit range and reads as %3")
                      .arg(wideText(high, low), path.isEmpty() ? QStringLiteral("/") : path,
                           QString::number(clamped));
    return clamped;
}

PlistValue BinaryPlistReader::text(const Object& object)
{
    const char* bytes = m_bytes.constData() + object.payload;
    if (object.type == AsciiString)
        return QString::fromLatin1(bytes, qsizetype(object.count));
    QString text(qsizetype(object.count), Qt::Uninitialized);
    for (std::uint64_t i = 0; i < object.count; ++i)
        text[qsizetype(i)] = QChar(char16_t(bigEndian(object.payload + 2 * i, 2)));
    return text;
}

} // namespace ravlin
