#include "ArrangementStore.h"

#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"

namespace ravlin {

std::optional<BarArrangement> ArrangementStore::recorded() const
{
    PlistValue value = m_defaults.persistentValue(defaultsKey);
    if (value.isNull())
        return std::nullopt;
    if (value == m_parsedFrom)
        return m_parsed;
    bool cut = false;
    m_parsed = BarArrangement::fromPlist(value, &cut);
    m_parsedFrom = std::move(value);
    if (!m_parsed)
        qCWarning(lcBar).noquote() << "the stored arrangement" << defaultsKey
                                   << "is not one; the bar as it stands is taken instead";
    else if (cut)
        qCWarning(lcBar).noquote() << "the stored arrangement" << defaultsKey << "holds more than"
                                   << BarArrangement::maxItems << "items; only the first are kept";
    return m_parsed;
}

void ArrangementStore::record(const BarArrangement& arrangement)
{
    if (recorded() == arrangement)
        return;
    m_defaults.set(defaultsKey, arrangement.toPlist());
}

} // namespace ravlin
