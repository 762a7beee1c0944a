#pragma once

#include "SavedLayout.h"

#include <QStringList>

#include <optional>

namespace ravlin {

class DefaultsStore;

// The layouts the user saved, kept in the settings under "ravlin.layouts", which one is in
// use, and the occasions that switch to one by themselves (off unless the user picks a layout).
class LayoutLibrary {
public:
    static inline const QString layoutsKey = QStringLiteral("ravlin.layouts");
    static inline const QString activeKey = QStringLiteral("ravlin.activeLayout");
    static inline const QString onDisplayKey = QStringLiteral("ravlin.layoutOnDisplay");
    static inline const QString onBatteryKey = QStringLiteral("ravlin.layoutOnBattery");
    // What was in use before an occasion switched, to go back to when it ends.
    static inline const QString beforeKey = QStringLiteral("ravlin.layoutBefore");

    explicit LayoutLibrary(DefaultsStore& defaults) : m_defaults(defaults) {}

    // By name, in the order a person reads them (case-insensitive).
    QStringList names() const;
    std::optional<SavedLayout> layout(const QString& name) const;
    void save(const SavedLayout& layout);
    bool remove(const QString& name);

    QString active() const;
    void setActive(const QString& name);

    // Empty: the occasion switches nothing.
    QString forDisplayConnected() const;
    void setForDisplayConnected(const QString& name);
    QString forBattery() const;
    void setForBattery(const QString& name);
    QString before() const;
    void setBefore(const QString& name);

private:
    QString text(const QString& key) const;
    void setText(const QString& key, const QString& value);

    DefaultsStore& m_defaults;
};

} // namespace ravlin
