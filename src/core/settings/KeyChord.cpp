#include "KeyChord.h"

#include "foundation/Logging.h"

#include <QHash>
#include <QStringList>

#include <array>
#include <utility>

namespace ravlin {
namespace {

struct KeyName {
    const char16_t* name;
    std::uint32_t virtualKey; // the system's code for the key's place on an ANSI keyboard
    int qtKey;
    const char16_t* symbol; // how menus show it; null: the name itself
};

// clang-format off
constexpr KeyName keyNames[] = {
    {u"A", 0x00, Qt::Key_A, nullptr}, {u"S", 0x01, Qt::Key_S, nullptr},
    {u"D", 0x02, Qt::Key_D, nullptr}, {u"F", 0x03, Qt::Key_F, nullptr},
    {u"H", 0x04, Qt::Key_H, nullptr}, {u"G", 0x05, Qt::Key_G, nullptr},
    {u"Z", 0x06, Qt::Key_Z, nullptr}, {u"X", 0x07, Qt::Key_X, nullptr},
    {u"C", 0x08, Qt::Key_C, nullptr}, {u"V", 0x09, Qt::Key_V, nullptr},
    {u"B", 0x0B, Qt::Key_B, nullptr}, {u"Q", 0x0C, Qt::Key_Q, nullptr},
    {u"W", 0x0D, Qt::Key_W, nullptr}, {u"E", 0x0E, Qt::Key_E, nullptr},
    {u"R", 0x0F, Qt::Key_R, nullptr}, {u"Y", 0x10, Qt::Key_Y, nullptr},
    {u"T", 0x11, Qt::Key_T, nullptr}, {u"1", 0x12, Qt::Key_1, nullptr},
    {u"2", 0x13, Qt::Key_2, nullptr}, {u"3", 0x14, Qt::Key_3, nullptr},
    {u"4", 0x15, Qt::Key_4, nullptr}, {u"6", 0x16, Qt::Key_6, nullptr},
    {u"5", 0x17, Qt::Key_5, nullptr}, {u"=", 0x18, Qt::Key_Equal, nullptr},
    {u"9", 0x19, Qt::Key_9, nullptr}, {u"7", 0x1A, Qt::Key_7, nullptr},
    {u"-", 0x1B, Qt::Key_Minus, nullptr}, {u"8", 0x1C, Qt::Key_8, nullptr},
    {u"0", 0x1D, Qt::Key_0, nullptr}, {u"]", 0x1E, Qt::Key_BracketRight, nullptr},
    {u"O", 0x1F, Qt::Key_O, nullptr}, {u"U", 0x20, Qt::Key_U, nullptr},
    {u"[", 0x21, Qt::Key_BracketLeft, nullptr}, {u"I", 0x22, Qt::Key_I, nullptr},
    {u"P", 0x23, Qt::Key_P, nullptr}, {u"Return", 0x24, Qt::Key_Return, u"↩"},
    {u"L", 0x25, Qt::Key_L, nullptr}, {u"J", 0x26, Qt::Key_J, nullptr},
    {u"'", 0x27, Qt::Key_Apostrophe, nullptr}, {u"K", 0x28, Qt::Key_K, nullptr},
    {u";", 0x29, Qt::Key_Semicolon, nullptr}, {u"\\", 0x2A, Qt::Key_Backslash, nullptr},
    {u",", 0x2B, Qt::Key_Comma, nullptr}, {u"/", 0x2C, Qt::Key_Slash, nullptr},
    {u"N", 0x2D, Qt::Key_N, nullptr}, {u"M", 0x2E, Qt::Key_M, nullptr},
    {u".", 0x2F, Qt::Key_Period, nullptr}, {u"Tab", 0x30, Qt::Key_Tab, u"⇥"},
    {u"Space", 0x31, Qt::Key_Space, u"␣"}, {u"`", 0x32, Qt::Key_QuoteLeft, nullptr},
    {u"Delete", 0x33, Qt::Key_Backspace, u"⌫"}, {u"Escape", 0x35, Qt::Key_Escape, u"⎋"},
    {u"F17", 0x40, Qt::Key_F17, nullptr}, {u"F18", 0x4F, Qt::Key_F18, nullptr},
    {u"F19", 0x50, Qt::Key_F19, nullptr}, {u"F20", 0x5A, Qt::Key_F20, nullptr},
    {u"F5", 0x60, Qt::Key_F5, nullptr}, {u"F6", 0x61, Qt::Key_F6, nullptr},
    {u"F7", 0x62, Qt::Key_F7, nullptr}, {u"F3", 0x63, Qt::Key_F3, nullptr},
    {u"F8", 0x64, Qt::Key_F8, nullptr}, {u"F9", 0x65, Qt::Key_F9, nullptr},
    {u"F11", 0x67, Qt::Key_F11, nullptr}, {u"F13", 0x69, Qt::Key_F13, nullptr},
    {u"F16", 0x6A, Qt::Key_F16, nullptr}, {u"F14", 0x6B, Qt::Key_F14, nullptr},
    {u"F10", 0x6D, Qt::Key_F10, nullptr}, {u"F12", 0x6F, Qt::Key_F12, nullptr},
    {u"F15", 0x71, Qt::Key_F15, nullptr}, {u"Home", 0x73, Qt::Key_Home, u"↖"},
    {u"PageUp", 0x74, Qt::Key_PageUp, u"⇞"}, {u"ForwardDelete", 0x75, Qt::Key_Delete, u"⌦"},
    {u"F4", 0x76, Qt::Key_F4, nullptr}, {u"End", 0x77, Qt::Key_End, u"↘"},
    {u"F2", 0x78, Qt::Key_F2, nullptr}, {u"PageDown", 0x79, Qt::Key_PageDown, u"⇟"},
    {u"F1", 0x7A, Qt::Key_F1, nullptr}, {u"Left", 0x7B, Qt::Key_Left, u"←"},
    {u"Right", 0x7C, Qt::Key_Right, u"→"}, {u"Down", 0x7D, Qt::Key_Down, u"↓"},
    {u"Up", 0x7E, Qt::Key_Up, u"↑"},
};
// clang-format on

// The system's hot-key modifier bits (cmdKey, shiftKey, optionKey, controlKey).
constexpr std::uint32_t hotKeyCommand = 1u << 8;
constexpr std::uint32_t hotKeyShift = 1u << 9;
constexpr std::uint32_t hotKeyOption = 1u << 11;
constexpr std::uint32_t hotKeyControl = 1u << 12;

struct ModifierName {
    KeyChord::Modifier modifier;
    const char16_t* stored;
    const char16_t* symbol;
};
// In the order the system shows them.
constexpr std::array<ModifierName, 4> modifierNames = {{
    {KeyChord::Control, u"control", u"⌃"},
    {KeyChord::Option, u"option", u"⌥"},
    {KeyChord::Shift, u"shift", u"⇧"},
    {KeyChord::Command, u"command", u"⌘"},
}};

// Qt's Mac convention: its Control modifier is the Command key, its Meta modifier Control.
constexpr std::pair<KeyChord::Modifier, int> qtModifierPairs[] = {
    {KeyChord::Command, Qt::ControlModifier},
    {KeyChord::Control, Qt::MetaModifier},
    {KeyChord::Option, Qt::AltModifier},
    {KeyChord::Shift, Qt::ShiftModifier},
};

const KeyName* findKey(const QString& name)
{
    for (const KeyName& k : keyNames)
        if (name.compare(QString::fromUtf16(k.name), Qt::CaseInsensitive) == 0)
            return &k;
    static const QHash<QString, QString> aliases = {
        {QStringLiteral("esc"), QStringLiteral("Escape")},
        {QStringLiteral("enter"), QStringLiteral("Return")},
        {QStringLiteral("backspace"), QStringLiteral("Delete")},
        {QStringLiteral("comma"), QStringLiteral(",")},
        {QStringLiteral("period"), QStringLiteral(".")},
    };
    if (const auto it = aliases.find(name.toLower()); it != aliases.end())
        return findKey(*it);
    for (const KeyName& k : keyNames)
        if (k.symbol && name == QString::fromUtf16(k.symbol))
            return &k;
    return nullptr;
}

const KeyName* findKey(int qtKey)
{
    for (const KeyName& k : keyNames)
        if (k.qtKey == qtKey)
            return &k;
    return nullptr;
}

std::optional<KeyChord::Modifier> modifierNamed(const QString& word)
{
    static const QHash<QString, KeyChord::Modifier> names = {
        {QStringLiteral("command"), KeyChord::Command}, {QStringLiteral("cmd"), KeyChord::Command},
        {QStringLiteral("⌘"), KeyChord::Command},       {QStringLiteral("option"), KeyChord::Option},
        {QStringLiteral("opt"), KeyChord::Option},      {QStringLiteral("alt"), KeyChord::Option},
        {QStringLiteral("⌥"), KeyChord::Option},        {QStringLiteral("control"), KeyChord::Control},
        {QStringLiteral("ctrl"), KeyChord::Control},    {QStringLiteral("⌃"), KeyChord::Control},
        {QStringLiteral("shift"), KeyChord::Shift},     {QStringLiteral("⇧"), KeyChord::Shift},
    };
    const auto it = names.find(word.toLower());
    return it == names.end() ? std::nullopt : std::optional(*it);
}

// "⌃⌥⌘M" becomes "⌃+⌥+⌘+M": the symbols stand for words of their own.
QStringList wordsOf(const QString& text)
{
    QString spaced;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool symbol = modifierNamed(QString(c)).has_value();
        spaced += c;
        if (symbol && i + 1 < text.size() && text[i + 1] != u'+')
            spaced += u'+';
    }
    // A "+" standing for itself cannot be told from the separator; the key is "=" with Shift.
    return spaced.split(u'+');
}

} // namespace

std::optional<KeyChord> KeyChord::parse(const QString& text)
{
    if (text.size() > maxTextLength) {
        qCWarning(lcApp).noquote() << "a shortcut text of" << text.size()
                                   << "characters names no chord; it is not read";
        return std::nullopt;
    }
    const QStringList words = wordsOf(text.trimmed());
    if (words.isEmpty() || words.last().trimmed().isEmpty())
        return std::nullopt;
    KeyChord chord;
    for (qsizetype i = 0; i + 1 < words.size(); ++i) {
        const std::optional<Modifier> m = modifierNamed(words[i].trimmed());
        if (!m)
            return std::nullopt;
        chord.modifiers |= *m;
    }
    const KeyName* key = findKey(words.last().trimmed());
    if (!key)
        return std::nullopt;
    chord.key = QString::fromUtf16(key->name);
    return chord;
}

QString KeyChord::storedText() const
{
    QStringList words;
    for (const ModifierName& m : modifierNames)
        if (hasModifier(m.modifier))
            words.append(QString::fromUtf16(m.stored));
    words.append(key);
    return words.join(u'+');
}

QString KeyChord::displayText() const
{
    QString text;
    for (const ModifierName& m : modifierNames)
        if (hasModifier(m.modifier))
            text += QString::fromUtf16(m.symbol);
    const KeyName* k = findKey(key);
    return text + (k && k->symbol ? QString::fromUtf16(k->symbol) : key);
}

std::uint32_t KeyChord::virtualKeyCode() const
{
    const KeyName* k = findKey(key);
    return k ? k->virtualKey : 0xFFFF;
}

std::uint32_t KeyChord::hotKeyModifiers() const
{
    return (hasModifier(Command) ? hotKeyCommand : 0) | (hasModifier(Shift) ? hotKeyShift : 0) |
           (hasModifier(Option) ? hotKeyOption : 0) | (hasModifier(Control) ? hotKeyControl : 0);
}

int KeyChord::qtKey() const
{
    const KeyName* k = findKey(key);
    return k ? k->qtKey : 0;
}

int KeyChord::qtModifiers() const
{
    int qt = 0;
    for (const auto& [ours, theirs] : qtModifierPairs)
        if (hasModifier(ours))
            qt |= theirs;
    return qt;
}

std::optional<KeyChord> KeyChord::fromQt(int qtKey, int qtModifiers)
{
    const KeyName* k = findKey(qtKey == Qt::Key_Enter ? int(Qt::Key_Return) : qtKey);
    if (!k)
        return std::nullopt;
    KeyChord chord;
    chord.key = QString::fromUtf16(k->name);
    for (const auto& [ours, theirs] : qtModifierPairs)
        if (qtModifiers & theirs)
            chord.modifiers |= ours;
    return chord;
}

QString KeyChord::typedText() const
{
    if (key == u"Space")
        return QStringLiteral(" ");
    if (key == u"Return")
        return QStringLiteral("\r");
    if (key.size() != 1)
        return {};
    return hasModifier(Shift) ? key.toUpper() : key.toLower();
}

} // namespace ravlin
