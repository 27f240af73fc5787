#include "host/workbench/drive_watch.h"

#include "host/connected_drive.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr quint16 kRegisters[] = {watched::kDriveState, watched::kControlPlace,    watched::kSpeed,
                                  watched::kReference,  watched::kArmatureCurrent, watched::kFieldCurrent,
                                  watched::kLastFault};
constexpr qint64 kPassMs = 200;
constexpr qint64 kSharedPassMs = 1000;
constexpr qint64 kShare = 4; ///< a pass rests so many times as long as it has kept the line busy
constexpr qint64 kNextMs = 1;

} // namespace

void CDriveWatch::SetDrive(CConnectedDrive* drive, const std::vector<ParameterDescription>& parameters) {
    m_timer.Stop();
    m_drive = drive;
    m_state = {};
    m_next = 0;
    m_registers.clear();
    for (const quint16 reg : kRegisters)
        if (std::ranges::find(parameters, reg, &ParameterDescription::reg) != parameters.end())
            m_registers.push_back(reg);
    if (drive)
        m_timer.StartOnce(kNextMs);
}

void CDriveWatch::LookSoon() {
    if (!m_drive)
        return;
    m_next = 0;
    m_timer.StartOnce(kNextMs);
}

void CDriveWatch::Step() {
    const qint64 began = CClock::Current().Now();
    if (m_next == 0) {
        m_spent = 0;
        Hear(m_drive->PlainDrive().RefreshState());
        m_state.status = m_drive->PlainDrive().GetStatusWord();
    } else {
        const quint16 reg = m_registers[m_next - 1];
        quint16 word = 0;
        if (m_drive->PlainLink().ReadWord(reg, word))
            m_state.words[reg] = word;
        else
            m_state.words.remove(reg);
    }
    m_spent += CClock::Current().Now() - began;
    ++m_next;
    if (m_next > m_registers.size() || !m_state.Answers())
        return EndPass();
    m_timer.StartOnce(kNextMs);
}

void CDriveWatch::EndPass() {
    m_next = 0;
    m_timer.StartOnce(std::max(m_isShared ? kSharedPassMs : kPassMs, kShare * m_spent));
    if (onChange)
        onChange();
}

void CDriveWatch::Hear(bool answered) {
    if (answered) {
        m_state.silentSince.reset();
        return;
    }
    m_state.silence = m_drive->PlainLink().LastErrorText();
    m_state.words.clear();
    if (!m_state.silentSince)
        m_state.silentSince = QDateTime::currentDateTime();
}

} // namespace krt550
