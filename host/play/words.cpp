#include "host/play/words.h"

namespace krt550 {
namespace {

QChar EscapedChar(QChar c) {
    return c == QLatin1Char('n') ? QLatin1Char('\n') : c;
}

/// Takes the quoted text that starts at `at` into `word` and moves `at` behind it; false without its end.
bool TakeQuoted(const QString& line, qsizetype& at, QString& word) {
    for (++at; at < line.size(); ++at) {
        if (line[at] == QLatin1Char('"')) {
            ++at;
            return true;
        }
        if (line[at] == QLatin1Char('\\') && at + 1 < line.size())
            word += EscapedChar(line[++at]);
        else
            word += line[at];
    }
    return false;
}

} // namespace

std::optional<QStringList> SplitWords(const QString& line) {
    QStringList words;
    for (qsizetype at = 0; at < line.size();) {
        if (line[at].isSpace()) {
            ++at;
            continue;
        }
        if (line[at] == QLatin1Char('#'))
            break;
        QString word;
        while (at < line.size() && !line[at].isSpace()) {
            if (line[at] != QLatin1Char('"'))
                word += line[at++];
            else if (!TakeQuoted(line, at, word))
                return std::nullopt;
        }
        words.append(word);
    }
    return words;
}

} // namespace krt550
