#include "SavedLayout.h"

#include "LayoutName.h"
#include "foundation/Logging.h"
#include "foundation/PlistJson.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace ravlin {
namespace {

const QString formatKey = QStringLiteral("format");
const QString formatName = QStringLiteral("ravlin.layout");
const QString nameKey = QStringLiteral("name");
const QString arrangementKey = QStringLiteral("arrangement");
const QString placementsKey = QStringLiteral("placements");

std::optional<SavedLayout> fail(QString* error, const QString& why)
{
    if (error)
        *error = why;
    return std::nullopt;
}

} // namespace

PlistValue SavedLayout::toPlist() const
{
    PlistDict placed;
    for (auto it = placements.begin(); it != placements.end(); ++it)
        if (it.value() != ItemPlacement::Panel)
            placed.insert(it.key(), itemPlacementName(it.value()));
    return PlistDict{{formatKey, formatName},
                     {nameKey, name},
                     {arrangementKey, arrangement.toPlist()},
                     {placementsKey, placed}};
}

std::optional<SavedLayout> SavedLayout::fromPlist(const PlistValue& value, QString* error)
{
    if (!value.isDict())
        return fail(error, QStringLiteral("not a layout"));
    const std::optional<QString> format = value[formatKey].asString();
    if (format && *format != formatName)
        return fail(error, QStringLiteral("a file of another kind (%1)").arg(*format));
    SavedLayout layout;
    layout.name = value[nameKey].asString().value_or(QString()).trimmed();
    if (layout.name.isEmpty())
        return fail(error, QStringLiteral("a layout without a name"));
    bool cut = false;
    const std::optional<BarArrangement> arrangement =
        BarArrangement::fromPlist(value[arrangementKey], &cut);
    if (!arrangement)
        return fail(error, QStringLiteral("its arrangement is not a list of items per section"));
    layout.arrangement = *arrangement;
    if (const PlistDict* placed = value[placementsKey].asDict()) {
        cut = cut || placed->size() > BarArrangement::maxItems;
        for (auto it = placed->begin(); it != placed->end(); ++it) {
            if (layout.placements.size() == BarArrangement::maxItems)
                break;
            const std::optional<ItemPlacement> placement =
                itemPlacementFromName(it.value().asString().value_or(QString()));
            if (placement && *placement != ItemPlacement::Panel && !it.key().isEmpty())
                layout.placements.insert(it.key(), *placement);
        }
    } else if (!value[placementsKey].isNull()) {
        return fail(error, QStringLiteral("its placements are not a dictionary"));
    }
    if (cut)
        qCWarning(lcBar).noquote() << "the layout" << LayoutName::quoted(layout.name)
                                   << "names more than" << BarArrangement::maxItems
                                   << "items; only the first are kept";
    return layout;
}

QByteArray SavedLayout::toJson() const
{
    return QJsonDocument(PlistJson::toJson(toPlist()).toObject()).toJson(QJsonDocument::Indented);
}

std::optional<SavedLayout> SavedLayout::fromJson(const QByteArray& json, QString* error)
{
    QString parseError;
    const std::optional<PlistValue> value =
        PlistJson::parse(QString::fromUtf8(json), &parseError);
    if (!value)
        return fail(error, QStringLiteral("not JSON: %1").arg(parseError));
    std::optional<SavedLayout> layout = fromPlist(*value, error);
    if (!layout)
        return std::nullopt;
    // A name from a file enters the program here, as a typed one does in the settings.
    const std::optional<QString> name = LayoutName::validated(layout->name, error);
    if (!name)
        return std::nullopt;
    layout->name = *name;
    return layout;
}

} // namespace ravlin
