#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace ravlin::sandbox {

// One line of a sandbox script split into words. A word may contain quoted
// parts ("…" with \" and \\ escapes); '#' at the start of a word begins a comment.
struct ScriptLine {
    struct Word {
        QString text;       // quotes removed, escapes resolved
        qsizetype rawStart; // offset of the word in the raw line
    };

    int number = 0;
    QString raw; // the line without its comment, trimmed at the end
    QList<Word> words;

    static std::optional<ScriptLine> parse(const QString& line, int number, QString* error);

    bool isEmpty() const { return words.isEmpty(); }
    QString word(qsizetype i) const { return i < words.size() ? words[i].text : QString(); }
    // The raw text from word i to the end of the line (for JSON values with blanks).
    QString rest(qsizetype i) const;
};

} // namespace ravlin::sandbox
