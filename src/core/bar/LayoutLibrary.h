#pragma once

#include "SavedLayout.h"

#include <QStringList>

#include <optional>

namespace ravlin {

class DefaultsStore;

// The layouts the user saved, kept in the settings under "ravlin.layouts", and which one is in
// use. Rules (core/rules) switch between them by themselves.
class LayoutLibrary {
public:
    static inline const QString layoutsKey = QStringLiteral("ravlin.layouts");
    static inline const QString activeKey = QStringLiteral("ravlin.activeLayout");

    // Far more than anyone keeps; it bounds what a hand-edited or hostile file can make us
    // read at every look at the library.
    static constexpr int maxLayouts = 100;

    explicit LayoutLibrary(DefaultsStore& defaults) : m_defaults(defaults) {}

    // By name, in the order a person reads them (case-insensitive).
    QStringList names() const;
    std::optional<SavedLayout> layout(const QString& name) const;
    // Replaces a layout of the same name; false (with a log line) when the library is full.
    bool save(const SavedLayout& layout);
    // An imported layout never replaces a saved one: it takes a free name ("Work 2") unless
    // the very same layout is saved under its name already. The name it is kept under, or
    // absent when the library is full.
    std::optional<QString> addImported(SavedLayout layout);
    bool remove(const QString& name);

    QString active() const;
    void setActive(const QString& name);

private:
    QString text(const QString& key) const;
    void setText(const QString& key, const QString& value);

    DefaultsStore& m_defaults;
};

} // namespace ravlin
