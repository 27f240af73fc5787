#include "tests/assistants/safety_watch.h"

namespace krt550 {
namespace {

constexpr int kLooksToStand = 2;

/// What a macro, a selector of the procedures' texts or a setting of a terminal stands in.
bool IsConnection(quint16 reg) {
    const auto isIn = [reg](int first, int last) { return reg >= first && reg <= last; };
    return reg == 9908 || reg == 1005 || reg == 1006 || reg == 1101 || reg == 2503 || isIn(1025, 1032) ||
           isIn(1301, 1316) || isIn(1401, 1416) || isIn(1501, 1510);
}

} // namespace

WatchedDrive::WatchedDrive() {
    onCall = [this](const QString& call) {
        JudgeConnections(call);
        JudgeCall(call, words[9906] != 0);
    };
}

void WatchedDrive::HoldConnections(const std::vector<std::pair<quint16, quint16>>& wanted) {
    for (const auto& [reg, word] :
         {std::pair<quint16, quint16>{1005, 1}, {1101, 1}, {1006, 2}, {1501, 101}, {1401, 802}})
        words[reg] = word;
    m_connections.clear();
    for (const auto& [reg, word] : words)
        if (IsConnection(reg))
            m_connections[reg] = {word};
    for (const auto& [reg, word] : wanted)
        m_connections[reg].insert(word);
}

/// No connection is lost that the person did not take off, and no macro loaded that nobody chose.
void WatchedDrive::JudgeConnections(const QString& call) {
    if (!call.startsWith("write "))
        return;
    const quint16 reg = call.section(' ', 1).section('=', 0, 0).toUShort();
    const quint16 word = call.section('=', 1).toUShort();
    const auto connection = m_connections.find(reg);
    if (connection != m_connections.end() && !connection->second.contains(word))
        violations.append(call + " loses a connection");
    if (call == "write 9907=1" && words[9908] == m_loadedMacro)
        violations.append("the macro is loaded that was loaded before");
}

QStringList WatchedDrive::Remains() const {
    QStringList left;
    if (m_turning)
        left.append("the motor turns");
    if (m_closed)
        left.append("the contactor is closed");
    if (words.at(9906) != 0)
        left.append("a service mode is set");
    if (localControl)
        left.append("local control is held");
    return left;
}

void WatchedDrive::Happened(const QString& call) {
    FeedbackDrive::Happened(call);
    if (call == "write 9907=1")
        m_loadedMacro = words[9908];
    if (call == "close contactor")
        m_closed = true;
    else if (call == "open contactor")
        m_closed = false;
    else if (call == "start motor" && m_closed)
        m_turning = true;
    else if (call == "stop motor" && m_turning && m_looksLeft < 0)
        m_looksLeft = kLooksToStand;
    else if (call == "refresh" && m_looksLeft >= 0 && --m_looksLeft < 0)
        m_turning = false;
    if (call == "start motor")
        m_looksLeft = -1;
    m_toldToStop = m_looksLeft >= 0;
    statusWord = m_turning ? 0 : kStatusStopped;
}

} // namespace krt550
