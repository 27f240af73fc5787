#include "wizard/texts/help_file.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

namespace krt550 {

/// The file is a tree of lists whose items are objects with the parameters Name and Local.
std::vector<HelpContentsItem> ParseHelpContents(const QString& text) {
    static const QRegularExpression tag(
        QStringLiteral(R"re(<\s*(/?ul|/?object|param)\b((?:"[^"]*"|'[^']*'|[^>"'])*)>)re"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression attribute(QStringLiteral(R"re((name|value)\s*=\s*(?:"([^"]*)"|'([^']*)'))re"),
                                              QRegularExpression::CaseInsensitiveOption);
    std::vector<HelpContentsItem> items;
    HelpContentsItem item;
    int level = -1;
    for (auto tags = tag.globalMatch(text); tags.hasNext();) {
        const QRegularExpressionMatch match = tags.next();
        const QString name = match.captured(1).toLower();
        if (name == u"ul")
            ++level;
        else if (name == u"/ul")
            --level;
        else if (name == u"object")
            item = {{}, {}, std::max(level, 0)};
        else if (name == u"/object" && !item.title.isEmpty())
            items.push_back(item);
        else if (name == u"param") {
            QHash<QString, QString> values;
            for (auto all = attribute.globalMatch(match.captured(2)); all.hasNext();) {
                const QRegularExpressionMatch one = all.next();
                values[one.captured(1).toLower()] =
                    QTextDocumentFragment::fromHtml(one.captured(2) + one.captured(3)).toPlainText();
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
