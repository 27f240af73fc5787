// The help's wiring of every macro, beside what the drive loads for it and the names in the overview.
#include "wizard/texts/wizard_directory.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

QString TextOf(const char* name) {
    QFile file(QStringLiteral(KRT550_SOURCE_DIR "/data/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

using Words = QMap<quint16, quint16>;

/// What the selectors hold after each macro was loaded.
QMap<int, Words> LoadedWords() {
    QMap<int, Words> own;
    for (const QString& line : TextOf("KRT550.macros").split('\n'))
        if (const QStringList fields = line.split('\t'); fields.size() == 3 && fields[1].toUShort() != 0)
            own[fields[0].toInt()][fields[1].toUShort()] = quint16(fields[2].toInt());
    QMap<int, Words> loaded;
    for (const int macro : own.keys()) {
        loaded[macro] = own[0];
        loaded[macro].insert(own[macro]);
    }
    return loaded;
}

/// Row of a table for each input: those of digital inputs always, those of analogue inputs when they are used.
QStringList RowsOf(const CConnectionTable& table, const Words& words, const char* prefix, int inputs, bool all) {
    QStringList rows;
    for (int input = 1; input <= inputs; ++input) {
        QStringList names;
        for (const quint16 selector : table.Selectors())
            if (const int entry = table.Find(selector, input, words.value(selector, kNoWord)); entry >= 0)
                names.append(table[entry].name.toHtmlEscaped());
        if (all || !names.isEmpty())
            rows.append(QStringLiteral("<tr><td>%1%2</td><td>%3</td></tr>")
                            .arg(QLatin1String(prefix))
                            .arg(input)
                            .arg(names.isEmpty() ? QStringLiteral("-") : names.join(", ")));
    }
    return rows;
}

TEST(MacroHelp, SaysWhatEveryMacroConnects) {
    SetWizardDirectory(QStringLiteral(KRT550_SOURCE_DIR "/data"));
    CWizardTextStore& texts = CWizardTextStore::Instance();
    const QStringList sections = TextOf("help/2.htm").split("<h3>").mid(1);
    const QMap<int, Words> macros = LoadedWords();
    ASSERT_GE(macros.size(), 8);
    ASSERT_EQ(sections.size(), macros.size() + 1) << "a table for each macro, and one for the outputs";
    static const QRegularExpression row(QStringLiteral("<tr><td>[DA]I\\d</td>.*</tr>"));
    for (const int macro : macros.keys()) {
        const QString& section = sections[macro];
        EXPECT_TRUE(section.startsWith(QString::number(macro) + ' ')) << macro;
        QStringList shown;
        for (auto match = row.globalMatch(section); match.hasNext();)
            shown.append(match.next().captured());
        EXPECT_EQ(shown, RowsOf(texts.GetDIConnections(), macros[macro], "DI", 8, true) +
                             RowsOf(texts.GetAIConnections(), macros[macro], "AI", 4, false))
            << macro;
        EXPECT_TRUE(section.contains(texts.GetMacroDescription(quint16(macro)).toHtmlEscaped().replace("\n", "<br>\n")))
            << "the description of macro " << macro;
    }
    const Words& standard = macros[0];
    for (quint16 k = 0; k < 8; ++k) {
        const QString name = texts.GetDOName(standard[quint16(1401 + 2 * k)], standard[quint16(1402 + 2 * k)]);
        EXPECT_TRUE(sections.last().contains(QStringLiteral("<td>DO%1</td><td>%2</td>").arg(k + 1).arg(name)))
            << name.toStdString();
    }
}

} // namespace
} // namespace krt550
