// What becomes of the commands that a connection writes.
#include "hostlib/tolvbo32/dtoa.h"
#include "server/served_drive.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr quint8 NumberOf(quint16 command) {
    return static_cast<quint8>(command >> 8);
}

/// A frame that was held up or doubled on its way, by its number.
bool IsStray(quint16 command, quint16 lastCommand) {
    const quint8 number = NumberOf(command);
    const quint8 last = NumberOf(lastCommand);
    return number != 0 && last != 0 && number != NextCommandNumber(last);
}

} // namespace

WireException CServedDrive::WriteCommand(Master& master, quint16 word, std::optional<qint32> reference) {
    const auto command = static_cast<WireCommand>(word & 0xFF);
    const bool known =
        std::ranges::any_of(CommandDefs(), [command](const CommandDef& def) { return def.command == command; });
    if (!known || reference.has_value() != (command == WireCommand::SetReference))
        return Refuse(master, WireException::OutOfLimits,
                      known ? QStringLiteral("Command %1 is written %2 a reference.")
                                  .arg(word & 0xFF)
                                  .arg(reference ? QLatin1String("without") : QLatin1String("with"))
                            : QStringLiteral("There is no command %1.").arg(word & 0xFF));
    const bool stray = IsStray(word, master.lastCommand);
    if (stray && command != WireCommand::StopMotor) {
        if (word == master.lastCommand)
            return master.lastResult;
        return Refuse(master, WireException::OutOfLimits,
                      QStringLiteral("Command number %1 has strayed: %2 is expected.")
                          .arg(NumberOf(word))
                          .arg(NextCommandNumber(NumberOf(master.lastCommand))));
    }
    WireException result = WireException::None;
    if (command != WireCommand::Poll) {
        result = RefuseWhenBusy(master, command == WireCommand::TakeLocalControl);
        if (result == WireException::None) {
            result = Execute(master, command, reference.value_or(0));
            ++m_commandCount;
        }
    }
    if (!stray) {
        master.lastCommand = word;
        master.lastResult = result;
    }
    return result;
}

WireException CServedDrive::Execute(Master& master, WireCommand command, qint32 reference) {
    const bool local = m_host.GetDrive().GetControlPlace() == ControlPlace::Local;
    const auto carryOut = [&]() -> bool {
        switch (command) {
        case WireCommand::TakeLocalControl:
            return m_host.TakeLocalControl();
        case WireCommand::ReleaseLocalControl:
            return m_host.ReleaseLocalControl();
        case WireCommand::CloseContactor:
            return m_host.CloseContactor();
        case WireCommand::OpenContactor:
            return m_host.OpenContactor();
        case WireCommand::StartMotor:
            return m_host.StartMotor();
        case WireCommand::StopMotor:
            return m_host.StopMotor();
        case WireCommand::ResetFault:
            return m_host.ResetFault();
        case WireCommand::SetReference:
            return m_host.SetReference(dtoa(RpmOf(reference), 2));
        case WireCommand::Poll:
            break;
        }
        return true;
    };
    if (!carryOut())
        return Refuse(
            master, local && command == WireCommand::SetReference ? WireException::OutOfLimits : WireException::Refused,
            m_host.GetLastErrorText());
    if (command == WireCommand::TakeLocalControl) {
        m_holder = &master;
        Hear(master);
    }
    return WireException::None;
}

} // namespace krt550
