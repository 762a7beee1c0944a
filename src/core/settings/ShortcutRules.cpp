#include "ShortcutRules.h"

namespace ravlin {
namespace {

// What the system and every application keep: Spotlight and Finder search, the input
// sources, the application and window switchers, screenshots, force quit, the lock
// screen, the character viewer, and the standard commands of every application.
constexpr const char16_t* reservedChords[] = {
    u"command+Space",         u"option+command+Space",   u"control+Space",
    u"control+option+Space",  u"control+command+Space",  u"command+Tab",
    u"shift+command+Tab",     u"command+`",              u"shift+command+`",
    u"shift+command+3",       u"shift+command+4",        u"shift+command+5",
    u"control+shift+command+3", u"control+shift+command+4", u"option+command+Escape",
    u"control+command+Q",     u"command+Q",              u"command+W",
    u"command+H",             u"option+command+H",       u"command+M",
    u"command+,",             u"control+command+F",      u"option+command+D",
    u"control+Up",            u"control+Down",           u"control+Left",
    u"control+Right",
};

} // namespace

bool ShortcutRules::isReserved(const KeyChord& chord)
{
    for (const char16_t* text : reservedChords)
        if (KeyChord::parse(QString::fromUtf16(text)) == chord)
            return true;
    return false;
}

std::optional<QString> ShortcutRules::refusal(const KeyChord& chord,
                                              const std::optional<KeyChord>& other)
{
    if ((chord.modifiers & ~unsigned(KeyChord::Shift)) == 0)
        return noModifierKey;
    if (isReserved(chord))
        return reservedKey;
    if (other && *other == chord)
        return sameAsOtherKey;
    return std::nullopt;
}

KeyChord ShortcutRules::defaultPanelChord()
{
    return {QStringLiteral("M"), KeyChord::Control | KeyChord::Option | KeyChord::Command};
}

} // namespace ravlin
