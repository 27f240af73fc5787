#pragma once

#include "hostlib/tolvbo32/parameter_link.h"

namespace krt550 {

/// A link that fetches what was announced in one request, when the first of it is read, and hands each value out once.
/// Passes everything else on to another link.
class CBatchingLink : public CParameterLink {
public:
    /// Borrowed.
    explicit CBatchingLink(CParameterLink& next) : m_next(next) {}

    /// Called once for each request, before it: what a line that takes its time waits.
    std::function<void()> onRequest;
    /// The requests since the last call: "fetch 9902 9903", "read 801", "write 9906=1".
    QStringList TakeRequests() { return std::exchange(m_requests, {}); }

    bool ReadWord(quint16 reg, quint16& word) override;
    bool WriteWord(quint16 reg, quint16 word) override;
    void Announce(std::span<const quint16> registers) override;
    QString LastErrorText() const override { return m_next.LastErrorText(); }

private:
    void Request(const QString& what);
    void Fetch();

    CParameterLink& m_next;
    QStringList m_requests;
    std::vector<quint16> m_announced;     ///< and not fetched yet
    std::map<quint16, quint16> m_fetched; ///< and not handed out yet
};

} // namespace krt550
