#include "Languages.h"

namespace ravlin::Languages {

const std::vector<AppLanguage>& all()
{
    static const std::vector<AppLanguage> languages = {
        {QStringLiteral("en"), QStringLiteral("English")},
        {QStringLiteral("de"), QStringLiteral("Deutsch")},
        {QStringLiteral("fr"), QStringLiteral("Français")},
        {QStringLiteral("es"), QStringLiteral("Español")},
        {QStringLiteral("it"), QStringLiteral("Italiano")},
        {QStringLiteral("pt-BR"), QStringLiteral("Português (Brasil)")},
        {QStringLiteral("nl"), QStringLiteral("Nederlands")},
        {QStringLiteral("sv"), QStringLiteral("Svenska")},
        {QStringLiteral("da"), QStringLiteral("Dansk")},
        {QStringLiteral("nb"), QStringLiteral("Norsk bokmål")},
        {QStringLiteral("fi"), QStringLiteral("Suomi")},
        {QStringLiteral("pl"), QStringLiteral("Polski")},
        {QStringLiteral("cs"), QStringLiteral("Čeština")},
        {QStringLiteral("ru"), QStringLiteral("Русский")},
        {QStringLiteral("uk"), QStringLiteral("Українська")},
        {QStringLiteral("tr"), QStringLiteral("Türkçe")},
        {QStringLiteral("el"), QStringLiteral("Ελληνικά")},
        {QStringLiteral("ro"), QStringLiteral("Română")},
        {QStringLiteral("hu"), QStringLiteral("Magyar")},
        {QStringLiteral("id"), QStringLiteral("Bahasa Indonesia")},
        {QStringLiteral("ja"), QStringLiteral("日本語")},
        {QStringLiteral("ko"), QStringLiteral("한국어")},
        {QStringLiteral("zh-Hans"), QStringLiteral("简体中文")},
        {QStringLiteral("zh-Hant"), QStringLiteral("繁體中文")},
        {QStringLiteral("ar"), QStringLiteral("العربية")},
        {QStringLiteral("he"), QStringLiteral("עברית")},
    };
    return languages;
}

} // namespace ravlin::Languages
