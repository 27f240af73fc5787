#pragma once

#include "hostlib/tolvbo32/parameter_link.h"

namespace krt550 {

class CAsFound;
class CDriveStory;
class CRunWatch;

/// Passes every parameter access on to another link and records it. A write is on the disk before it is sent, except
/// the one that ends the service mode: that is a stop, which is sent first.
class CRecordedLink : public CParameterLink {
public:
    /// All borrowed.
    CRecordedLink(CParameterLink& link, CDriveStory& story, CAsFound& asFound, CRunWatch& runs)
        : m_link(link), m_story(story), m_asFound(asFound), m_runs(runs) {}

    bool ReadWord(quint16 reg, quint16& word) override;
    bool WriteWord(quint16 reg, quint16 word) override;
    void Announce(std::span<const quint16> registers) override;
    QString LastErrorText() const override { return m_link.LastErrorText(); }

private:
    CParameterLink& m_link;
    CDriveStory& m_story;
    CAsFound& m_asFound;
    CRunWatch& m_runs;
};

} // namespace krt550
