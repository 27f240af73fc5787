#include "drive/simulated_link.h"

#include "drive/fault_modes.h"
#include "drive/simulated_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvcom32/communication_facade.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr qint64 kReplyTimeout = 2000; ///< [ms]

QString MessageOf(CommunicationError error) {
    return CCommunicationFacade::GetErrorMessage(static_cast<quint16>(error), false);
}

} // namespace

bool CSimulatedLink::ReadWord(quint16 reg, quint16& word) {
    quint16 answer = 0;
    const Reply reply = Exchange([&] {
        if (m_modes.Has(FaultModeKind::MissingRegister, reg))
            return Fail(UnknownRegisterText(reg));
        if (m_modes.Has(FaultModeKind::ReadFails, reg))
            return Fail(MessageOf(CommunicationError::Checksum));
        return m_drive.ReadRegister(reg, answer) || Fail(m_drive.GetLastError());
    });
    if (reply == Reply::Done)
        word = answer;
    return reply == Reply::Done;
}

bool CSimulatedLink::WriteWord(quint16 reg, quint16 word) {
    return Exchange([&] {
               if (m_modes.Has(FaultModeKind::MissingRegister, reg))
                   return Fail(UnknownRegisterText(reg));
               if (m_modes.Has(FaultModeKind::WriteRefused, reg))
                   return Fail(MessageOf(CommunicationError::Refused));
               return m_drive.WriteRegister(reg, word) || Fail(m_drive.GetLastError());
           }) == Reply::Done;
}

CSimulatedLink::Reply CSimulatedLink::Exchange(const std::function<bool()>& request) {
    m_error.clear();
    if (m_leftToLine)
        return request() ? Reply::Done : Reply::Refused;
    if (!IsAlive()) {
        m_error = MessageOf(CommunicationError::Timeout);
        return Reply::None;
    }
    const bool done = request();
    const quint32 lost = m_modes.Find(FaultModeKind::ReplyLost).value_or(0);
    if (lost > 0 && ++m_replies % lost == 0) {
        m_error = MessageOf(CommunicationError::Timeout);
        return Reply::None;
    }
    const qint64 delay = m_modes.Find(FaultModeKind::LateAnswer).value_or(0);
    if (delay > 0)
        CClock::Current().Sleep(std::min(delay, kReplyTimeout));
    if (delay > kReplyTimeout) {
        m_error = MessageOf(CommunicationError::Timeout);
        return Reply::None;
    }
    return done ? Reply::Done : Reply::Refused;
}

bool CSimulatedLink::IsAlive() const {
    return !m_modes.Has(FaultModeKind::NoAnswer);
}

bool CSimulatedLink::Fail(const QString& error) {
    m_error = error;
    return false;
}

} // namespace krt550
