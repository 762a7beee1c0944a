#include "SearchText.h"

namespace ravlin {
namespace {

bool isMark(QChar c)
{
    switch (c.category()) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
        return true;
    default:
        return false;
    }
}

constexpr char16_t arabicTatweel = 0x0640; // a stretch of the baseline, not a letter
constexpr char16_t firstKatakana = 0x30A1;
constexpr char16_t lastKatakana = 0x30F6;
constexpr char16_t katakanaToHiragana = 0x60;

} // namespace

QString SearchText::fold(const QString& text)
{
    // Compatibility decomposition turns full-width letters into plain ones, half-width
    // katakana into full-width ones and splits accents from their letters.
    const QString decomposed = text.normalized(QString::NormalizationForm_KD);
    QString kept;
    kept.reserve(decomposed.size());
    for (QChar c : decomposed) {
        if (isMark(c) || c.unicode() == arabicTatweel)
            continue;
        if (c.unicode() >= firstKatakana && c.unicode() <= lastKatakana)
            c = QChar(char16_t(c.unicode() - katakanaToHiragana));
        kept += c.isSpace() ? QChar(u' ') : c;
    }
    // Case folding keeps ß; people type "ss" for it.
    return kept.toCaseFolded().replace(QChar(u'ß'), QStringLiteral("ss")).simplified();
}

QString SearchText::capped(const QString& query)
{
    if (query.size() <= maxLength)
        return query;
    qsizetype end = maxLength;
    if (query[end - 1].isHighSurrogate())
        --end;
    return query.left(end);
}

SearchText::SearchText(const QString& query)
    : m_words(fold(capped(query)).split(u' ', Qt::SkipEmptyParts))
{}

bool SearchText::matches(const QStringList& texts) const
{
    if (m_words.isEmpty())
        return true;
    QString all;
    for (const QString& text : texts)
        all += fold(text) + u'\n';
    for (const QString& word : m_words)
        if (!all.contains(word))
            return false;
    return true;
}

} // namespace ravlin
