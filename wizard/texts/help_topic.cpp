#include "wizard/texts/help_topic.h"

#include <QRegularExpression>
#include <QStringList>

namespace krt550 {
namespace {

// Far above what a written topic needs.
constexpr int kDeepest = 40;
constexpr int kTablesInTables = 3;
constexpr int kWidestSpan = 8;
constexpr int kMostSpans = 40;
constexpr int kMostTags = 3000;

/// Elements without an end, or whose end may be left out: they do not nest.
bool Nests(const QString& name) {
    static const QStringList flat = {"area", "base", "br", "col", "dd",   "dt", "hr", "img",   "input",
                                     "li",   "link", "p",  "td",  "meta", "th", "tr", "tbody", "thead"};
    return !flat.contains(name);
}

bool SpansLittle(const QString& html) {
    static const QRegularExpression span(QStringLiteral(R"((?:col|row)span\s*=\s*["']?\s*(\d*))"),
                                         QRegularExpression::CaseInsensitiveOption);
    int count = 0;
    for (auto all = span.globalMatch(html); all.hasNext();) {
        bool isNumber = true;
        const QString width = all.next().captured(1);
        if (++count > kMostSpans || (!width.isEmpty() && width.toInt(&isNumber) > kWidestSpan) || !isNumber)
            return false;
    }
    return true;
}

} // namespace

bool IsSimpleTopic(const QString& html) {
    static const QRegularExpression tag(QStringLiteral(R"(<\s*(/?)([a-zA-Z][a-zA-Z0-9]*))"));
    int depth = 0;
    int tables = 0;
    int lists = 0;
    int tags = 0;
    qsizetype styleBegin = -1;
    for (auto all = tag.globalMatch(html); all.hasNext();) {
        const QRegularExpressionMatch match = all.next();
        const int step = match.captured(1).isEmpty() ? 1 : -1;
        const QString name = match.captured(2).toLower();
        if (name == u"ul" || name == u"ol")
            lists = std::max(lists + step, 0);
        if (Nests(name) || (name == u"li" && lists == 0)) // items nest when there is no list around them
            depth = std::max(depth + step, 0);
        if (name == u"table")
            tables = std::max(tables + step, 0);
        if (name == u"style" && step > 0)
            styleBegin = match.capturedEnd();
        if (name == u"style" && step < 0 && styleBegin >= 0 && match.capturedStart() - styleBegin > kLargestStyle)
            return false;
        if (++tags > kMostTags || depth > kDeepest || tables > kTablesInTables)
            return false;
    }
    return SpansLittle(html);
}

} // namespace krt550
