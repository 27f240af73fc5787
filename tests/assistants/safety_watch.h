#pragma once

#include "tests/assistants/feedback_drive.h"
#include "tests/assistants/safety_rules.h"

namespace krt550 {

/// A drive with a motor that needs a few looks to stand, and with somebody who watches what is done to it.
class WatchedDrive : public FeedbackDrive, public SafetyRules {
public:
    WatchedDrive();

    /// From now on a connection of a terminal may become what the person wants of it, and nothing else.
    void HoldConnections(const std::vector<std::pair<quint16, quint16>>& wanted);
    /// 99.08 names the macro whose connections the drive has.
    bool IsNamedMacroLoaded() const { return words.at(9908) == m_loadedMacro; }
    /// What is left behind: motor, contactor, service mode, local control.
    QStringList Remains() const;

protected:
    void Happened(const QString& call) override;

private:
    void JudgeConnections(const QString& call);

    bool m_closed = false;                              ///< the contactor
    std::map<quint16, std::set<quint16>> m_connections; ///< what each may be
    quint16 m_loadedMacro = 0;
    int m_looksLeft = -1; ///< until the motor stands, once it was told to stop
};

} // namespace krt550
