#pragma once

#include "hostlib/tolvbo32/parameter_link.h"

namespace krt550 {

class CCallLog;

/// Passes every parameter access on to another link and notes it.
class CLoggedLink : public CParameterLink {
public:
    /// Both are borrowed.
    CLoggedLink(CParameterLink& link, CCallLog& log) : m_link(link), m_log(log) {}

    bool ReadWord(quint16 reg, quint16& word) override;
    bool WriteWord(quint16 reg, quint16 word) override;
    void Announce(std::span<const quint16> registers) override { m_link.Announce(registers); }
    QString LastErrorText() const override { return m_link.LastErrorText(); }

private:
    QString ErrorText(bool succeeded) const;

    CParameterLink& m_link;
    CCallLog& m_log;
};

} // namespace krt550
