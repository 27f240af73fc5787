#include "wizard/texts/help_file.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <algorithm>

namespace krt550 {
namespace {

constexpr std::size_t kMostItems = 2000;
constexpr int kDeepestLevel = 15;

QString WithoutEntities(const QString& text) {
    return text.contains(u'&') ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

} // namespace

/// The file is a tree of lists whose items are objects with the parameters Name and Local. A tag holds no "<", so that
/// a quote that never ends costs no more than the way to the next tag.
std::vector<HelpContentsItem> ParseHelpContents(const QString& text) {
    static const QRegularExpression tag(
        QStringLiteral(R"re(<\s*(/?ul|/?object|param)\b((?:"[^"<]*+"|'[^'<]*+'|[^<>"'])*+)>)re"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression attribute(QStringLiteral(R"re((name|value)\s*=\s*(?:"([^"]*)"|'([^']*)'))re"),
                                              QRegularExpression::CaseInsensitiveOption);
    std::vector<HelpContentsItem> items;
    HelpContentsItem item;
    int level = -1;
    for (auto tags = tag.globalMatch(text); tags.hasNext() && items.size() < kMostItems;) {
        const QRegularExpressionMatch match = tags.next();
        const QString name = match.captured(1).toLower();
        if (name == u"ul")
            level = std::min(level + 1, kDeepestLevel);
        else if (name == u"/ul")
            level = std::max(level - 1, -1);
        else if (name == u"object")
            item = {{}, {}, std::max(level, 0)};
        else if (name == u"/object" && !item.title.isEmpty())
            items.push_back(item);
        else if (name == u"param") {
            QHash<QString, QString> values;
            for (auto all = attribute.globalMatch(match.captured(2)); all.hasNext();) {
                const QRegularExpressionMatch one = all.next();
                values[one.captured(1).toLower()] = WithoutEntities(one.captured(2) + one.captured(3));
            }
            const QString key = values.value(QStringLiteral("name")).toLower();
            if (key == u"name")
                item.title = values.value(QStringLiteral("value"));
            else if (key == u"local")
                item.topic = values.value(QStringLiteral("value"));
        }
    }
    return items;
}

} // namespace krt550
