// The shipped text files beside the drive description and the layouts: one home for every name, a tool tip for every
// row.
#include "tests/support/shipped_drive.h"
#include "wizard/resources/module_resources.h"
#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

using Names = QMap<int, QString>; ///< by register

/// Which fields of a line name registers.
struct Key {
    const char* name;
    int first;
    int step; ///< to the next one; 0 when there is only one
};
constexpr Key kKeys[] = {{"TOOLTIP", 1, 0},     {"PAN", 1, 0},       {"VAN", 1, 0},         {"CAP", 2, 0},
                         {"SLIDERVAL", 2, 0},   {"GAINADJUP", 1, 0}, {"GAINADJDOWN", 1, 0}, {"ENABLESTART", 2, 2},
                         {"MACRODEPPAR", 2, 1}, {"PROFIBUS", 1, 0},  {"CANOPEN", 1, 0},     {"DEVICENET", 1, 0},
                         {"CONTROLNET", 1, 0},  {"ETHERNET", 1, 0},  {"PROFINET", 1, 0},    {"DI", 1, 0},
                         {"AI", 1, 0}};

/// What is wrong with the lines of a text file: "FILE:LINE: what". `toolTips` collects the registers that have one.
QStringList FindFaults(const QString& file, const QStringList& lines, const Names& names, QSet<int>& toolTips) {
    QStringList faults;
    for (qsizetype line = 0; line < lines.size(); ++line) {
        const auto tell = [&](const QString& what) {
            faults.append(QStringLiteral("%1:%2: %3").arg(file, QString::number(line + 1), what));
        };
        const QStringList fields = lines[line].split(u'\t');
        for (const auto& [key, first, step] : kKeys)
            for (int at = first; fields[0] == QLatin1String(key) && at<fields.size(); at += step> 0 ? step : 1'000)
                if (!fields[at].isEmpty() && !names.contains(fields[at].toInt()))
                    tell(QStringLiteral("%1 names the unknown register %2").arg(fields[0], fields[at]));
        const int reg = fields.value(1).toInt();
        if (fields[0] == QLatin1String("PAN") && names.value(reg) == fields.value(2))
            tell(QStringLiteral("PAN repeats the description's name of %1").arg(reg));
        if (fields[0] == QLatin1String("TOOLTIP")) {
            if (toolTips.contains(reg))
                tell(QStringLiteral("a second tool tip for %1").arg(reg));
            if (!fields.value(2).isEmpty())
                toolTips.insert(reg);
        }
    }
    return faults;
}

/// The text that a parameter has for a raw word; what the word is itself when it has none.
QString ValueTextOf(const ParameterDescription& parameter, const QString& word) {
    for (const auto& [value, text] : parameter.values)
        if (QString::number(value) == word)
            return text;
    return word;
}

/// What is wrong with the connections of terminals: a DI or AI line's values must select in the drive what its columns
/// say, none of its names may stand twice, and a signal to send bears the name of its register.
QStringList FindWrongConnections(const QStringList& lines, const QMap<int, ParameterDescription>& parameters) {
    QStringList faults;
    QSet<QString> seen;
    for (const QString& line : lines) {
        const QStringList fields = line.split(u'\t');
        const int inputs = fields[0] == QLatin1String("DI") ? 8 : fields[0] == QLatin1String("AI") ? 4 : 0;
        const int first = inputs == 4 ? 3 : 2;
        const ParameterDescription parameter = parameters.value(fields.value(1).toInt());
        for (int input = 1; input <= inputs; ++input) {
            const QString word = fields.value(first + input - 1);
            const QString terminal = fields[0] + QString::number(input);
            if (!word.isEmpty() && !ValueTextOf(parameter, word).endsWith(terminal))
                faults.append(QStringLiteral("%1 does not select %2").arg(line, terminal));
        }
        static const QSet<QString> none = {QStringLiteral("Not connected"), QStringLiteral("Zero"),
                                           QStringLiteral("Fixed limits"), QStringLiteral("Torque reference"),
                                           QStringLiteral("Not used")};
        if (inputs > 0 && !none.contains(ValueTextOf(parameter, fields.value(first + inputs))))
            faults.append(QStringLiteral("%1 does not disconnect").arg(line));
        static const QSet<QString> signalKeys = {QStringLiteral("AO"), QStringLiteral("VANRECEIVE"),
                                                 QStringLiteral("VANTRANSMIT"), QStringLiteral("VANMBOXRECEIVE"),
                                                 QStringLiteral("VANMBOXTRANSMIT")};
        const bool isSignal = signalKeys.contains(fields[0]) && fields.value(1) != QLatin1String("0");
        if (isSignal && parameter.name != fields.value(2))
            faults.append(QStringLiteral("%1 is named %2").arg(line, parameter.name));
        if (inputs == 0 && !isSignal && fields[0] != QLatin1String("DO"))
            continue;
        const QString name = fields[0] + fields.last();
        if (seen.contains(name))
            faults.append(QStringLiteral("%1: a second one of this name").arg(line));
        seen.insert(name);
    }
    return faults;
}

QStringList LinesOf(const char* path) {
    QFile file(QString::fromUtf8(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split(u'\n') : QStringList();
}

/// Registers of all rows that have tool tips, with the number of a layout that shows them.
QMap<int, int> ShownRegisters() {
    constexpr int kLastLayout = 11'000;
    const CModuleResources resources;
    QMap<int, int> shown;
    for (int number = 1; number < kLastLayout; ++number)
        if (const auto layout = resources.GetLayout(number); layout && number != kFieldbusRows.layout)
            for (const ControlLayout& control : layout->controls)
                if (control.reg != 0)
                    shown[control.reg] = number;
    return shown;
}

TEST(ShippedTexts, NameWhatExistsAndRepeatNothing) {
    Names names;
    QMap<int, ParameterDescription> parameters;
    for (const ParameterDescription& parameter : ShippedParameters()) {
        names[parameter.reg] = parameter.name;
        parameters[parameter.reg] = parameter;
    }
    QSet<int> toolTips;
    QStringList faults;
    for (const char* file : {"data/Wzkrt550.txt", "data/KRT550ConfigurableAssistant.txt"}) {
        const QStringList lines = LinesOf((std::string(KRT550_SOURCE_DIR "/") + file).c_str());
        ASSERT_GT(lines.size(), 10) << file;
        faults += FindFaults(QString::fromUtf8(file), lines, names, toolTips);
    }
    const QMap<int, int> shown = ShownRegisters();
    ASSERT_GT(shown.size(), 30);
    for (auto row = shown.begin(); row != shown.end(); ++row) {
        if (!toolTips.contains(row.key()))
            faults.append(QStringLiteral("layout %1: the row of %2 has no tool tip").arg(row.value()).arg(row.key()));
        if (!names.contains(row.key()))
            faults.append(QStringLiteral("layout %1: there is no %2").arg(row.value()).arg(row.key()));
    }
    EXPECT_EQ(faults.join(u'\n').toStdString(), "");

    EXPECT_EQ(
        FindWrongConnections(LinesOf(KRT550_SOURCE_DIR "/data/Wzkrt550.txt"), parameters).join(u'\n').toStdString(),
        "");
}

} // namespace
} // namespace krt550
