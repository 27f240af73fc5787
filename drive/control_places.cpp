#include "drive/control_places.h"

#include "drive/control_word.h"
#include "drive/digital_inputs.h"
#include "drive/register_file.h"
#include "drive/registers.h"

namespace krt550 {

CommandSource ChooseSource(const CDigitalInputs& inputs, const CRegisterFile& registers) {
    const auto chosen = static_cast<CommandSource>(
        registers.GetWord(reg::kCommandSource, static_cast<quint16>(CommandSource::Fieldbus)));
    if (!inputs.IsConnected(InputFunction::Automatic))
        return chosen;
    if (!inputs.IsClosed(InputFunction::Automatic))
        return CommandSource::Terminals;
    return chosen == CommandSource::Link ? chosen : CommandSource::Fieldbus;
}

bool CControlPlaces::IsByBus(const CRegisterFile& registers) const {
    return IsRemoteBy(CommandSource::Fieldbus) &&
           (registers.GetWord(reg::kControlWord) & control::kByOverridingControl);
}

void CControlPlaces::TakeLocal(quint16 word, double reference) {
    m_place = ControlPlace::Local;
    m_word = word;
    m_reference = reference;
}

void CControlPlaces::SetOther(bool holds) {
    if (holds)
        m_place = ControlPlace::Other;
    else if (m_place == ControlPlace::Other)
        m_place = ControlPlace::Remote;
}

bool CControlPlaces::IsLocallyOn() const {
    return m_word & control::kOn;
}

void CControlPlaces::SwitchOn() {
    m_word |= control::kOn;
}

void CControlPlaces::SwitchOff() {
    m_word = control::kIdle;
}

void CControlPlaces::Start() {
    m_word |= control::kRun;
}

void CControlPlaces::Stop() {
    m_word &= static_cast<quint16>(~control::kEnableOperation);
}

void CControlPlaces::UseUpStart() {
    m_word &= static_cast<quint16>(~control::kRun);
    m_usedUp = true;
}

void CControlPlaces::LookForNewStart(const CRegisterFile& registers) {
    if (!(GivenWord(registers) & control::kEnableOperation))
        m_usedUp = false;
}

quint16 CControlPlaces::GetWord(const CRegisterFile& registers) const {
    const quint16 word = GivenWord(registers);
    return m_usedUp ? static_cast<quint16>(word & ~control::kEnableOperation) : word;
}

quint16 CControlPlaces::GivenWord(const CRegisterFile& registers) const {
    if (IsLocal())
        return m_word;
    if (IsByTerminals())
        return m_terminalWord;
    return IsByBus(registers) || IsByLink() ? registers.GetWord(reg::kControlWord) : control::kIdle;
}

} // namespace krt550
