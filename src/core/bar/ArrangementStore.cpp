#include "ArrangementStore.h"

#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"

namespace ravlin {

std::optional<BarArrangement> ArrangementStore::recorded() const
{
    const PlistValue value = m_defaults.persistentValue(defaultsKey);
    if (value.isNull())
        return std::nullopt;
    std::optional<BarArrangement> arrangement = BarArrangement::fromPlist(value);
    if (!arrangement)
        qCWarning(lcBar).noquote() << "the stored arrangement" << defaultsKey
                                   << "is not one; the bar as it stands is taken instead";
    return arrangement;
}

void ArrangementStore::record(const BarArrangement& arrangement)
{
    if (recorded() == arrangement)
        return;
    m_defaults.set(defaultsKey, arrangement.toPlist());
}

} // namespace ravlin
