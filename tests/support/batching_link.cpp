#include "tests/support/batching_link.h"

namespace krt550 {

bool CBatchingLink::ReadWord(quint16 reg, quint16& word) {
    if (std::ranges::find(m_announced, reg) != m_announced.end())
        Fetch();
    if (const auto fetched = m_fetched.extract(reg)) {
        word = fetched.mapped();
        return true;
    }
    Request(QStringLiteral("read %1").arg(reg));
    return m_next.ReadWord(reg, word);
}

bool CBatchingLink::WriteWord(quint16 reg, quint16 word) {
    Announce({});
    Request(QStringLiteral("write %1=%2").arg(reg).arg(word));
    return m_next.WriteWord(reg, word);
}

void CBatchingLink::Announce(std::span<const quint16> registers) {
    m_fetched.clear();
    m_announced.assign(registers.begin(), registers.end());
}

void CBatchingLink::Request(const QString& what) {
    m_requests.append(what);
    if (onRequest)
        onRequest();
}

/// What the drive refuses is left for a read of its own, which says why.
void CBatchingLink::Fetch() {
    const std::vector<quint16> registers = std::exchange(m_announced, {});
    QString request = QStringLiteral("fetch");
    for (const quint16 reg : registers)
        request += QStringLiteral(" %1").arg(reg);
    Request(request);
    for (const quint16 reg : registers)
        if (quint16 word = 0; m_next.ReadWord(reg, word))
            m_fetched[reg] = word;
}

} // namespace krt550
