#pragma once

#include "foundation/PlistValue.h"

#include <QByteArray>

#include <vector>

namespace ravlin {

// Writes a binary property list ("bplist00"), the form the system's own `defaults` writes.
// It carries what XML cannot: dates to every fraction of a second, UIDs, and text with
// characters XML has no place for. Null values inside arrays and dictionaries are left out,
// as in the XML form.
class BinaryPlistWriter {
public:
    static QByteArray write(const PlistValue& root);

private:
    struct Object {
        const PlistValue* value = nullptr; // null for a dictionary key
        QString key;
        std::vector<std::uint64_t> refs;   // of a container: keys first, then values
    };

    std::uint64_t collect(const PlistValue& value);
    std::uint64_t collectKey(const QString& key);
    void encode(const Object& object);
    void marker(int type, std::uint64_t count);
    void integer(std::uint64_t value, int width);
    void bigEndian(std::uint64_t value, int width);
    void text(const QString& text);

    std::vector<Object> m_objects;
    QByteArray m_out;
    int m_refSize = 1;
};

} // namespace ravlin
