#pragma once

#include <QString>
#include <QStringList>

namespace ravlin {

// Matching of what the user types in the panel against the tiles' names, the way
// the system's search fields match: without regard to case, accents and other
// marks, the width of East Asian forms, hiragana against katakana, and with
// German ß as "ss". Every word typed must appear in one of the texts.
class SearchText {
public:
    // Longer than any name a tile has: typing past it cannot find more, only cost more.
    static constexpr int maxLength = 100;
    // The text cut to maxLength, never inside a character.
    static QString capped(const QString& query);

    // The folded form both sides are compared in.
    static QString fold(const QString& text);

    explicit SearchText(const QString& query);

    bool isEmpty() const { return m_words.isEmpty(); }
    bool matches(const QStringList& texts) const;

private:
    QStringList m_words;
};

} // namespace ravlin
