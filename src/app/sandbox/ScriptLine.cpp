#include "ScriptLine.h"

namespace ravlin::sandbox {

std::optional<ScriptLine> ScriptLine::parse(const QString& line, int number, QString* error)
{
    ScriptLine result;
    result.number = number;
    qsizetype i = 0;
    qsizetype end = line.size();
    while (i < line.size()) {
        while (i < line.size() && line[i].isSpace())
            ++i;
        if (i >= line.size())
            break;
        if (line[i] == u'#') {
            end = i;
            break;
        }
        Word word{QString(), i};
        bool inQuotes = false;
        while (i < line.size() && (inQuotes || !line[i].isSpace())) {
            const QChar c = line[i++];
            if (c == u'"') {
                inQuotes = !inQuotes;
            } else if (c == u'\\' && inQuotes && i < line.size()) {
                word.text += line[i++];
            } else {
                word.text += c;
            }
        }
        if (inQuotes) {
            if (error)
                *error = QStringLiteral("unterminated quote");
            return std::nullopt;
        }
        result.words.append(word);
    }
    result.raw = line.left(end);
    while (!result.raw.isEmpty() && result.raw.back().isSpace())
        result.raw.chop(1);
    return result;
}

QString ScriptLine::rest(qsizetype i) const
{
    if (i >= words.size())
        return {};
    return raw.mid(words[i].rawStart).trimmed();
}

} // namespace ravlin::sandbox
