#include "BarArrangement.h"

#include <QSet>

namespace ravlin {

namespace {

const QString alwaysKey = QStringLiteral("alwaysHidden");
const QString hiddenKey = QStringLiteral("hidden");
const QString visibleKey = QStringLiteral("visible");

bool isMarker(const QString& token)
{
    return token == BarArrangement::alwaysMarker || token == BarArrangement::hiddenMarker;
}

} // namespace

QStringList& BarArrangement::keys(Section section)
{
    switch (section) {
    case Section::AlwaysHidden:
        return alwaysHidden;
    case Section::Hidden:
        return hidden;
    case Section::Visible:
        break;
    }
    return visible;
}

const QStringList& BarArrangement::keys(Section section) const
{
    return const_cast<BarArrangement*>(this)->keys(section);
}

std::optional<BarArrangement::Section> BarArrangement::sectionOf(const QString& key) const
{
    for (Section s : {Section::AlwaysHidden, Section::Hidden, Section::Visible})
        if (keys(s).contains(key))
            return s;
    return std::nullopt;
}

QStringList BarArrangement::allKeys() const
{
    return alwaysHidden + hidden + visible;
}

QStringList BarArrangement::sequence() const
{
    return alwaysHidden + QStringList{alwaysMarker} + hidden + QStringList{hiddenMarker} + visible;
}

// Tokens before the always-hidden marker are always hidden, those before the hidden marker
// hidden, the rest visible; without an always-hidden marker there is no such section.
BarArrangement BarArrangement::fromSequence(const QStringList& tokens)
{
    BarArrangement a;
    const bool hasAlways = tokens.contains(alwaysMarker);
    Section section = hasAlways ? Section::AlwaysHidden : Section::Hidden;
    QSet<QString> seen;
    seen.reserve(tokens.size());
    for (const QString& token : tokens) {
        if (token == alwaysMarker)
            section = Section::Hidden;
        else if (token == hiddenMarker)
            section = Section::Visible;
        else if (!seen.contains(token)) {
            seen.insert(token);
            a.keys(section).append(token);
        }
    }
    return a;
}

BarArrangement BarArrangement::restrictedTo(const QStringList& wanted) const
{
    const QSet<QString> keep(wanted.begin(), wanted.end());
    BarArrangement a;
    for (Section s : {Section::AlwaysHidden, Section::Hidden, Section::Visible})
        for (const QString& key : keys(s))
            if (keep.contains(key))
                a.keys(s).append(key);
    return a;
}

// An unseen key stays in the section it was recorded in, right of the nearest key before
// it in the record that is still seen in that section (at the section's start if none is).
BarArrangement BarArrangement::merged(const BarArrangement& recorded, const BarArrangement& seen)
{
    BarArrangement result = seen;
    // Items in the bar always have a place; of those that left it, as many as the record
    // holds, so that it never grows past what is read back.
    qsizetype room = maxItems - seen.allKeys().size();
    for (Section s : {Section::AlwaysHidden, Section::Hidden, Section::Visible}) {
        QStringList& keys = result.keys(s);
        qsizetype at = 0;
        for (const QString& key : recorded.keys(s)) {
            if (seen.sectionOf(key) == s) {
                at = keys.indexOf(key) + 1;
            } else if (!seen.contains(key) && room > 0) {
                keys.insert(at++, key);
                --room;
            }
        }
    }
    return result;
}

BarArrangement BarArrangement::restored(const BarArrangement& recorded, const BarArrangement& seen)
{
    const QStringList seenTokens = seen.sequence();
    QStringList tokens;
    for (const QString& token : recorded.sequence())
        if (isMarker(token) || seen.contains(token))
            tokens.append(token);
    QString previous;
    for (const QString& token : seenTokens) {
        if (!tokens.contains(token))
            tokens.insert(previous.isEmpty() ? 0 : tokens.indexOf(previous) + 1, token);
        previous = token;
    }
    return fromSequence(tokens);
}

PlistValue BarArrangement::toPlist() const
{
    return PlistDict{{alwaysKey, PlistValue::fromStringList(alwaysHidden)},
                     {hiddenKey, PlistValue::fromStringList(hidden)},
                     {visibleKey, PlistValue::fromStringList(visible)}};
}

// One pass over the keys, each looked up in a set: a record is read in linear time.
std::optional<BarArrangement> BarArrangement::fromPlist(const PlistValue& value, bool* cut)
{
    if (cut)
        *cut = false;
    if (!value.isDict())
        return std::nullopt;
    BarArrangement a;
    QSet<QString> seen;
    const std::pair<const QString*, Section> parts[] = {{&alwaysKey, Section::AlwaysHidden},
                                                        {&hiddenKey, Section::Hidden},
                                                        {&visibleKey, Section::Visible}};
    for (const auto& [name, section] : parts) {
        const PlistValue& list = value[*name];
        if (list.isNull())
            continue;
        if (!list.isArray())
            return std::nullopt;
        for (const PlistValue& key : *list.asArray()) {
            const std::optional<QString> text = key.asString();
            if (!text || text->isEmpty() || isMarker(*text))
                return std::nullopt;
            if (seen.size() == maxItems) {
                if (cut)
                    *cut = true;
                break;
            }
            if (!seen.contains(*text)) {
                seen.insert(*text);
                a.keys(section).append(*text);
            }
        }
    }
    return a;
}

} // namespace ravlin
