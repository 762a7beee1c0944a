#include "ItemSpacing.h"

#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"

#include <algorithm>

namespace ravlin {
namespace {

PlistDict toPlist(const SpacingValues& values)
{
    PlistDict d;
    if (values.spacing)
        d.insert(QStringLiteral("spacing"), *values.spacing);
    if (values.padding)
        d.insert(QStringLiteral("padding"), *values.padding);
    return d;
}

SpacingValues fromPlist(const PlistValue& value)
{
    SpacingValues values;
    if (const PlistDict* d = value.asDict()) {
        if (const std::optional<std::int64_t> s = d->value(QStringLiteral("spacing")).asInteger())
            values.spacing = int(std::clamp<std::int64_t>(*s, -1000, 1000));
        if (const std::optional<std::int64_t> p = d->value(QStringLiteral("padding")).asInteger())
            values.padding = int(std::clamp<std::int64_t>(*p, -1000, 1000));
    }
    return values;
}

QString text(const SpacingValues& v)
{
    auto one = [](const std::optional<int>& n) {
        return n ? QString::number(*n) : QStringLiteral("default");
    };
    return QStringLiteral("spacing %1, padding %2").arg(one(v.spacing), one(v.padding));
}

} // namespace

SpacingValues ItemSpacing::stored() const
{
    return m_spacing ? m_spacing->stored() : SpacingValues{};
}

int ItemSpacing::spacing() const
{
    return stored().spacing.value_or(defaultSpacing);
}

int ItemSpacing::padding() const
{
    return stored().padding.value_or(defaultPadding);
}

std::optional<ItemSpacing::Record> ItemSpacing::record() const
{
    const std::optional<PlistDict> d = m_defaults.dictionaryForKey(recordKey);
    if (!d || !d->contains(QStringLiteral("written")))
        return std::nullopt;
    return Record{fromPlist(d->value(QStringLiteral("before"))),
                  fromPlist(d->value(QStringLiteral("written")))};
}

void ItemSpacing::keep(const Record& record)
{
    m_defaults.set(recordKey, PlistDict{{QStringLiteral("before"), toPlist(record.before)},
                                        {QStringLiteral("written"), toPlist(record.written)}});
}

bool ItemSpacing::changedByRavlin() const
{
    const std::optional<Record> r = record();
    return r && stored() == r->written;
}

bool ItemSpacing::apply(int spacing, int padding)
{
    if (!m_spacing)
        return false;
    const SpacingValues wanted{std::clamp(spacing, minimum, maximum),
                               std::clamp(padding, minimum, maximum)};
    // What the system held before Ravlin's first change, whoever set it, is what goes back.
    const std::optional<Record> earlier = record();
    const SpacingValues before = earlier && stored() == earlier->written ? earlier->before : stored();
    if (!m_spacing->store(wanted)) {
        qCWarning(lcUi) << "the system did not store the menu-bar item spacing";
        return false;
    }
    keep({before, wanted});
    m_defaults.noteUserChange();
    qCInfo(lcUi).noquote() << "item spacing set to" << text(wanted) << "- before:" << text(before);
    return true;
}

bool ItemSpacing::resetToDefault()
{
    if (!m_spacing)
        return false;
    if (!m_spacing->store({})) {
        qCWarning(lcUi) << "the system did not remove the menu-bar item spacing";
        return false;
    }
    m_defaults.remove(recordKey);
    m_defaults.noteUserChange();
    qCInfo(lcUi) << "item spacing back to the system's default";
    return true;
}

bool ItemSpacing::restoreOnRemoval()
{
    const std::optional<Record> r = record();
    if (!m_spacing || !r)
        return true; // nothing of Ravlin's to undo
    if (stored() != r->written) {
        qCInfo(lcUi).noquote() << "the item spacing was changed since Ravlin set it ("
                               << text(stored()) << "); it stays";
        m_defaults.remove(recordKey);
        return true;
    }
    const bool ok = m_spacing->store(r->before);
    if (ok)
        m_defaults.remove(recordKey);
    qCInfo(lcUi).noquote() << "item spacing put back to" << text(r->before)
                           << (ok ? QString() : QStringLiteral("- the system refused"));
    return ok;
}

} // namespace ravlin
