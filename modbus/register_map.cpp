#include "modbus/register_map.h"

#include <algorithm>
#include <iterator>

namespace krt550 {
namespace {

using namespace wire;

constexpr RegisterField kFields[] = {
    {kCommand, 1, FieldAccess::Write, FieldType::Bits, "", "1 to 9",
     "command: its code in the low byte, its number or 0 in the high byte"},
    {kCommandReference, 2, FieldAccess::Write, FieldType::Signed, "0.01 rpm", "speed limits 20.01, 20.02",
     "speed reference; alone, or behind the command 8 in one request of three registers"},
    {kStatus, 2, FieldAccess::Read, FieldType::Bits, "", "",
     "status: 1 contactor closed, 2 running, 4 local control held by this connection, 8 tripped, 16 stopped"},
    {kControlPlace, 1, FieldAccess::Read, FieldType::Number, "", "0 to 2",
     "control place: 0 terminals or overriding control, 1 this connection, 2 somebody else"},
    {kReference, 2, FieldAccess::Read, FieldType::Signed, "0.01 rpm", "", "speed reference in use, before the ramp"},
    {kActiveFault, 1, FieldAccess::Read, FieldType::Number, "", "", "code of the trip that is not reset, 0: none"},
    {kCommandCount, 1, FieldAccess::Read, FieldType::Number, "", "0 to 65535, then 0",
     "commands that the drive has carried out or refused, whoever sent them"},
    {kLastCommand, 1, FieldAccess::Read, FieldType::Bits, "", "",
     "last command of this connection, as it was written; 0: none yet"},
    {kLastResult, 1, FieldAccess::Read, FieldType::Number, "", "0 to 6",
     "what became of it: 0 carried out, otherwise the exception that it was refused with"},
    {kReason, 1 + kReasonBytes / 2, FieldAccess::Read, FieldType::Text, "", "0 to 200 bytes",
     "why this connection's last refused request was refused"},
    {kFaultError, 1, FieldAccess::Read, FieldType::Number, "", "",
     "0: the record follows; otherwise a communication error's code"},
    {kFaultHeader, 2, FieldAccess::Read, FieldType::Number, "", "", "number of trips so far"},
    {kFaultBytes, 1 + kFaultMostBytes / 2, FieldAccess::Read, FieldType::Bytes, "", "0 to 78 bytes",
     "record of the last fault"},
    {kSignature, 1, FieldAccess::Read, FieldType::Number, "", "550", "says that this map is used"},
    {kMapVersion, 1, FieldAccess::Read, FieldType::Number, "", "1", "version of this map"},
    {kUnitTextCount, 1, FieldAccess::Read, FieldType::Number, "", "0 to 256", "number of the drive's unit texts"},
    {kUnitTexts, kUnitTextSize* kMostUnitTexts, FieldAccess::Read, FieldType::Text, "", "0 to 14 bytes each",
     "unit texts: unit code c has eight registers from 21000 + 8 c"},
};

static_assert(kStateSize <= kMostRead && kFaultRecordSize <= kMostRead, "a block is one request");
static_assert(std::size(kFields) > 0 && kFields[0].address > kLastParameter);
static_assert(
    [] {
        for (std::size_t i = 1; i < std::size(kFields); ++i)
            if (kFields[i].address < kFields[i - 1].address + kFields[i - 1].size)
                return false;
        return true;
    }(),
    "fields lie in order and do not overlap");

constexpr CommandDef kCommands[] = {
    {WireCommand::TakeLocalControl, "take local control; a running motor keeps running at its reference"},
    {WireCommand::ReleaseLocalControl, "give local control back"},
    {WireCommand::CloseContactor, "close the main contactor"},
    {WireCommand::OpenContactor, "open the main contactor; a turning motor is ramped down first"},
    {WireCommand::StartMotor, "start the motor"},
    {WireCommand::StopMotor, "stop the motor on its ramp; the contactor stays closed"},
    {WireCommand::ResetFault, "reset a trip; needs no local control"},
    {WireCommand::SetReference, "set the speed reference that stands in the two registers behind the command"},
    {WireCommand::Poll, "nothing: the drive has heard the host"},
};

const char* TypeText(FieldType type) {
    switch (type) {
    case FieldType::Number:
        return "unsigned";
    case FieldType::Signed:
        return "signed";
    case FieldType::Bits:
        return "bits";
    case FieldType::Text:
        return "text";
    case FieldType::Bytes:
        return "bytes";
    }
    return "";
}

} // namespace

std::span<const RegisterField> RegisterFields() {
    return kFields;
}

const RegisterField* FindField(quint16 address) {
    const auto* const found = std::ranges::find_if(kFields, [address](const RegisterField& field) {
        return address >= field.address && address < field.address + field.size;
    });
    return found == std::end(kFields) ? nullptr : found;
}

std::span<const CommandDef> CommandDefs() {
    return kCommands;
}

QString MapText() {
    QString text = QStringLiteral("| Address | Registers | Access | Type | Unit | Range | Meaning |\n"
                                  "|---|---|---|---|---|---|---|\n");
    for (const RegisterField& field : kFields)
        text += QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 | %7 |\n")
                    .arg(field.address)
                    .arg(field.size)
                    .arg(field.access == FieldAccess::Read ? QLatin1String("read") : QLatin1String("write"),
                         QLatin1String(TypeText(field.type)), QLatin1String(field.unit), QLatin1String(field.range),
                         QLatin1String(field.meaning));
    text += QStringLiteral("\n| Command | Meaning |\n|---|---|\n");
    for (const CommandDef& command : kCommands)
        text +=
            QStringLiteral("| %1 | %2 |\n").arg(static_cast<int>(command.command)).arg(QLatin1String(command.meaning));
    return text;
}

} // namespace krt550
