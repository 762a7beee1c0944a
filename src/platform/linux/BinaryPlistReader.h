#pragma once

#include "foundation/PlistValue.h"

#include <optional>
#include <vector>

namespace ravlin {

// Reads binary property lists ("bplist00"), the form the system's own `defaults` writes. Our own
// reader rather than libplist's, whose 2.2 reader recurses without bound and copies every shared
// object: a few hundred bytes could stand for a tree of billions of values. The whole object
// graph is checked first, without recursion: references in range, no cycles, nesting within the
// limit and a bounded number of values once shared objects are copied out.
class BinaryPlistReader {
public:
    // More values than any settings file holds; it bounds the copying of shared objects.
    static constexpr std::uint64_t maxValues = 1'000'000;

    static bool isBinary(const QByteArray& bytes) { return bytes.startsWith("bplist00"); }

    BinaryPlistReader(const QByteArray& bytes, int maxNesting);

    // The top object; absent with a reason in error() when the bytes cannot be read whole.
    std::optional<PlistValue> read();
    const QString& error() const { return m_error; }
    // Integers beyond the 64-bit range read as the nearest 64-bit value, one line each.
    const QStringList& warnings() const { return m_warnings; }

private:
    struct Object {
        int type = 0;
        int info = 0;
        std::uint64_t count = 0;
        std::uint64_t payload = 0; // offset of the bytes after the marker and count
    };

    bool readTrailer();
    bool decode(std::uint64_t index, Object& object);
    bool childRef(const Object& object, std::uint64_t position, std::uint64_t& index);
    std::uint64_t childCount(const Object& object) const;
    bool checkGraph();
    PlistValue build(std::uint64_t index, const QString& path);
    PlistValue integer(const Object& object, const QString& path);
    PlistValue text(const Object& object);
    std::uint64_t bigEndian(std::uint64_t offset, int bytes) const;
    bool fail(const QString& reason);

    QByteArray m_bytes;
    int m_maxNesting;
    int m_offsetSize = 0;
    int m_refSize = 0;
    std::uint64_t m_objectCount = 0;
    std::uint64_t m_top = 0;
    std::uint64_t m_tableOffset = 0;
    std::vector<Object> m_objects;
    QString m_error;
    QStringList m_warnings;
};

} // namespace ravlin
