#include "tests/support/fake_drive.h"

#include "hostlib/tolvbo32/parameter_tree.h"
#include "hostlib/tolvbo32/value_codec.h"
#include "wizard/resources/page_rows.h"

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

std::vector<ParameterDescription> WizardParameters(std::vector<ParameterDescription> own) {
    const auto add = [&own](const ParameterDescription& parameter) {
        if (parameter.reg != 0 && std::ranges::find(own, parameter.reg, &ParameterDescription::reg) == own.end())
            own.push_back(parameter);
    };
    const auto addAll = [&add](int first, int last, double minimum, double maximum) {
        for (int reg = first; reg <= last; ++reg)
            add(Plain(reg, minimum, maximum));
    };
    for (const ParameterDescription& parameter :
         {List(9901, "Language", {{0, "English"}, {1, "Deutsch"}, {3, "Suomi"}}),
          Number(9902, "Motor 1 nominal voltage", 0, 5, 2000, "V"),
          Number(9903, "Motor 1 nominal current", 1, 0, 6553.5, "A"),
          Number(9904, "Motor 1 base speed", 0, 10, 6500, "rpm"),
          List(9908, "Application macro", {{0, "Standard"}, {1, "Jogging"}, {2, "Fieldbus"}}),
          List(9907, "Application restore", {{0, "Done"}, {1, "Load"}}), Number(9906, "Service mode", 0, 0, 14),
          List(4401, "Field control mode", {{0, "Constant"}, {1, "Weakening"}}),
          List(9912, "Exciter", {{0, "None"}, {1, "On-board"}})})
        add(parameter);
    for (int reg = 1025; reg <= 1032; ++reg)
        add(List(static_cast<quint16>(reg), QStringLiteral("Invert %1").arg(reg), {{0, "Direct"}, {1, "Inverted"}}));
    addAll(1301, 1316, -10000, 10000);
    addAll(1401, 1416, -9999, 9999);
    for (const PageRows* page : kAllPageRows)
        for (const RowGroupDef& group : page->groups)
            for (const RowDef& row : group.rows)
                add(row.kind == RowKind::List
                        ? List(row.reg, QStringLiteral("List %1").arg(row.reg), {{0, "Off"}, {1, "On"}})
                        : Plain(row.reg));
    for (const int reg : {102, 103, 105, 201, 208,  218,  229,  418,  419,  424,  503,  504,  505,  506,  511,  512,
                          801, 805, 806, 911, 1005, 1006, 1101, 1501, 1503, 1504, 1505, 1506, 1508, 1509, 1510, 2503})
        add(Plain(reg));
    // Words of datasets and mailboxes; the registers of those rows are given at run time.
    for (const auto& [first, last] : {std::pair{9001, 9012}, {9201, 9212}, {9412, 9435}})
        addAll(first, last, 0, 10000);
    for (ParameterDescription& parameter : own)
        if (parameter.reg == 9002 || parameter.reg == 9415)
            parameter.defaultValue = 9902; // what they point to is read
    return own;
}

} // namespace krt550
