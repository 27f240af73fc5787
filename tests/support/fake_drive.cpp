#include "tests/support/fake_drive.h"

#include "hostlib/tolvbo32/parameter_tree.h"
#include "hostlib/tolvbo32/value_codec.h"
#include "wizard/resources/page_rows.h"

#include <algorithm>

namespace krt550 {

FakeDrive::FakeDrive(std::vector<ParameterDescription> parameters)
    : m_parameters(std::move(parameters)), m_root(BuildParameterTree(m_parameters, this)) {
    QString error;
    for (const ParameterDescription& parameter : m_parameters)
        words[parameter.reg] = WordOfNumber(parameter, parameter.defaultValue, error).value_or(0);
}

void FakeDrive::SetTreeLink(CParameterLink& link) {
    m_root = BuildParameterTree(m_parameters, &link);
}

QStringList FakeDrive::TakeLog() {
    return std::exchange(m_log, {});
}

QStringList FakeDrive::TakeLog(const QStringList& beginnings) {
    QStringList chosen;
    for (const QString& entry : TakeLog())
        for (const QString& beginning : beginnings)
            if (entry.startsWith(beginning))
                chosen.append(entry);
    return chosen;
}

bool FakeDrive::ReadWord(quint16 reg, quint16& word) {
    if (!Note(QStringLiteral("read %1").arg(reg)) || unreadable.contains(reg))
        return false;
    word = words[reg];
    return true;
}

bool FakeDrive::WriteWord(quint16 reg, quint16 word) {
    if (!Note(QStringLiteral("write %1=%2").arg(reg).arg(word)) || unwritable.contains(reg))
        return false;
    words[reg] = word;
    return true;
}

quint16 FakeDrive::ReadFaultBuffer(quint32&, const FaultBufferRequest*, quint32*, QByteArray& record) {
    if (!Note(QStringLiteral("read fault buffer")))
        return 2;
    record = faultRecord;
    return faultBufferError;
}

bool FakeDrive::TakeLocalControl() {
    if (!Note(QStringLiteral("take local control")))
        return false;
    localControl = grantsLocalControl;
    return localControl;
}

bool FakeDrive::ReleaseLocalControl() {
    if (!Note(QStringLiteral("release local control")))
        return false;
    localControl = false;
    return true;
}

bool FakeDrive::GetParameterRoot(CParameterGroup** root) {
    const bool answers = hasRoot && Passes(QStringLiteral("get parameter root"));
    *root = answers ? m_root.get() : nullptr;
    return answers;
}

bool FakeDrive::Note(const QString& call) {
    m_log.append(call);
    if (onCall)
        onCall(call);
    const bool passes = Passes(call);
    if (passes)
        Happened(call);
    return passes;
}

std::vector<ParameterDescription> NamePlateParameters(const std::set<quint16>& missing) {
    std::vector<ParameterDescription> parameters = {
        List(9901, "Language", {{0, "English"}, {1, "Deutsch"}, {3, "Suomi"}}),
        Number(9902, "Motor 1 nominal voltage", 0, 5, 2000, "V"),
        Number(9903, "Motor 1 nominal current", 1, 0, 6553.5, "A"),
        Number(9904, "Motor 1 base speed", 0, 10, 6500, "rpm"),
        Number(2001, "Motor 1 minimum speed", 0, -10000, 10000, "rpm"),
        Number(2002, "Motor 1 maximum speed", 0, -10000, 10000, "rpm"),
        Number(9911, "Motor 1 nominal field current", 2, 0.3, 320, "A"),
        Number(3009, "Armature overcurrent level", 0, 20, 400, "%"),
        Number(3016, "Motor 1 overspeed", 0, 0, 10000, "rpm"),
        Number(9910, "Nominal mains voltage", 0, 0, 1000, "V"),
    };
    for (const RowGroupDef& group : kNamePlateRows.groups)
        for (const RowDef& row : group.rows)
            if (std::ranges::find(parameters, row.reg, &ParameterDescription::reg) == parameters.end())
                parameters.push_back(Number(row.reg, QStringLiteral("Parameter %1").arg(row.reg), 0, 0, 0));
    std::erase_if(parameters, [&](const ParameterDescription& parameter) { return missing.contains(parameter.reg); });
    return parameters;
}

std::vector<ParameterDescription> TerminalParameters() {
    std::vector<ParameterDescription> parameters = {
        List(9908, "Application macro", {{0, "Standard"}, {1, "Jogging"}, {2, "Fieldbus"}}),
        List(9907, "Application restore", {{0, "Done"}, {1, "Load"}}),
    };
    const auto add = [&parameters](int reg, double minimum, double maximum) {
        parameters.push_back(
            Number(static_cast<quint16>(reg), QStringLiteral("Parameter %1").arg(reg), 0, minimum, maximum));
    };
    for (const int reg : {201, 208, 229, 503, 504, 505, 506, 511, 512, 805, 806, 1005, 1006, 1101, 2503})
        add(reg, 0, 0);
    for (int reg = 1025; reg <= 1032; ++reg)
        parameters.push_back(
            List(static_cast<quint16>(reg), QStringLiteral("Invert %1").arg(reg), {{0, "Direct"}, {1, "Inverted"}}));
    for (int reg = 1301; reg <= 1316; ++reg)
        add(reg, -10000, 10000);
    for (int reg = 1401; reg <= 1416; ++reg)
        add(reg, -9999, 9999);
    for (const int reg : {1501, 1503, 1504, 1505, 1506, 1508, 1509, 1510})
        add(reg, 0, 9999);
    return parameters;
}

void AddRowsOfAllPages(std::vector<ParameterDescription>& parameters) {
    const auto add = [&parameters](quint16 reg, bool list) {
        if (reg == 0 || std::ranges::find(parameters, reg, &ParameterDescription::reg) != parameters.end())
            return;
        const QString name = QStringLiteral("Parameter %1").arg(reg);
        parameters.push_back(list ? List(reg, name, {{0, "Off"}, {1, "On"}}) : Number(reg, name, 0, 0, 10000));
    };
    for (const PageRows* page : kAllPageRows)
        for (const RowGroupDef& group : page->groups)
            for (const RowDef& row : group.rows)
                add(row.reg, row.kind == RowKind::List);
    for (const int reg : {418, 419})
        add(static_cast<quint16>(reg), false);
    // Words of datasets and mailboxes; the registers of those rows are given at run time.
    for (const auto& [first, last] : {std::pair{9001, 9012}, {9201, 9212}, {9412, 9435}})
        for (int reg = first; reg <= last; ++reg)
            add(static_cast<quint16>(reg), false);
    for (ParameterDescription& parameter : parameters)
        if (parameter.reg == 9002 || parameter.reg == 9415)
            parameter.defaultValue = 9902; // what they point to is read
}

std::vector<ParameterDescription> WizardParameters() {
    std::vector<ParameterDescription> parameters = NamePlateParameters();
    std::ranges::move(TerminalParameters(), std::back_inserter(parameters));
    parameters.push_back(Number(9906, "Service mode", 0, 0, 14));
    parameters.push_back(Number(424, "Progress", 0, 0, 100));
    parameters.push_back(Number(911, "Diagnosis", 0, 0, 100));
    for (const int reg : {102, 103, 105, 218})
        parameters.push_back(Number(static_cast<quint16>(reg), QStringLiteral("Speed %1").arg(reg), 0, 0, 0));
    parameters.push_back(List(4401, "Field control mode", {{0, "Constant"}, {1, "Weakening"}}));
    parameters.push_back(List(9912, "Exciter", {{0, "None"}, {1, "On-board"}}));
    AddRowsOfAllPages(parameters);
    return parameters;
}

} // namespace krt550
