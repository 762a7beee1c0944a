#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace ravlin {

// A table of localised texts in the .strings syntax: "key" = "value"; entries,
// C and C++ comments, backslash escapes (\n, \t, \", \\, \Uxxxx …), UTF-8 or UTF-16 text.
class StringsTable {
public:
    struct Entry {
        QString key;
        QString value;
        int line = 0;
    };

    static std::optional<StringsTable> parse(const QByteArray& bytes, QString* error = nullptr);
    static std::optional<StringsTable> load(const QString& path, QString* error = nullptr);

    std::optional<QString> value(const QString& key) const;
    const QList<Entry>& entries() const { return m_entries; }
    QStringList keys() const;

private:
    QList<Entry> m_entries;
    QHash<QString, qsizetype> m_index;
};

} // namespace ravlin
