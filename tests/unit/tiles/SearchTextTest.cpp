// What the user types in the panel against the tiles' names, in every script the
// interface speaks.
#include "core/tiles/SearchText.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

bool finds(const char* query, const char* text)
{
    return SearchText(QString::fromUtf8(query)).matches({QString::fromUtf8(text)});
}

} // namespace

TEST(SearchText, IgnoresCaseAccentsAndWidth)
{
    EXPECT_TRUE(finds("cafe", "Café Status"));
    EXPECT_TRUE(finds("CAFÉ", "cafe"));
    EXPECT_TRUE(finds("wifi", "ＷｉＦｉ"));         // full-width letters
    EXPECT_TRUE(finds("grosse", "Größe"));        // ß is "ss"
    EXPECT_TRUE(finds("straße", "STRASSE"));
    EXPECT_TRUE(finds("σοφια", "ΣΟΦΊΑ"));         // Greek, final sigma, tonos
    EXPECT_TRUE(finds("istanbul", "İstanbul"));
    EXPECT_FALSE(finds("cafe", "Cave"));
}

TEST(SearchText, FindsJapaneseHebrewAndArabicWords)
{
    EXPECT_TRUE(finds("どろっぷ", "ドロップボックス")); // hiragana finds katakana
    EXPECT_TRUE(finds("ﾄﾞﾛｯﾌﾟ", "ドロップボックス")); // half-width katakana
    EXPECT_TRUE(finds("天気", "今日の天気"));
    EXPECT_TRUE(finds("שלום", "שָׁלוֹם עולם"));        // without the vowel points
    EXPECT_TRUE(finds("اخبار", "أخبار اليوم"));      // alef with hamza
    EXPECT_TRUE(finds("عربي", "عـربـي"));           // tatweel
    EXPECT_FALSE(finds("天気", "天国"));
}

TEST(SearchText, EveryWordMustAppearInSomeText)
{
    const SearchText search(QStringLiteral("  tun  vpn "));
    EXPECT_TRUE(search.matches({QStringLiteral("Tunnel"), QStringLiteral("Example VPN")}));
    EXPECT_FALSE(search.matches({QStringLiteral("Tunnel")}));
    EXPECT_TRUE(SearchText(QStringLiteral("   ")).isEmpty());
    EXPECT_TRUE(SearchText(QString()).matches({}));
}
