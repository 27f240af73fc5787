#pragma once

#include <QtGlobal>

#include <cstddef>
#include <vector>

namespace krt550 {

class CDriveStory;
class CParameterLink;
class CRecorder;

/// Reads what the drive is like once, for the record. A drive that leaves three reads in a row unanswered is not asked
/// any more.
class CValueReading {
public:
    enum class Moment {
        AsFound, ///< what somebody else has read meanwhile is not read again
        AsLeft
    };
    /// All borrowed. `link` is the one behind the decorators.
    CValueReading(Moment moment, CParameterLink& link, CDriveStory& story, CRecorder& recorder);

    bool IsOver() const { return m_isOver; }
    /// The next few values: what one request brings on a line that reads ahead, one or two on a slow one that does not.
    void ReadPiece();
    /// What is left, for 5 s at most, and is over.
    void ReadRest();

private:
    bool IsWanted(quint16 reg) const;
    std::vector<quint16> NextPiece();
    void Read(quint16 reg);
    void Conclude();

    Moment m_moment;
    CParameterLink& m_link;
    CDriveStory& m_story;
    CRecorder& m_recorder;
    std::vector<quint16> m_registers; ///< ascending
    std::size_t m_next = 0;
    std::size_t m_failed = 0;
    int m_unanswered = 0; ///< in a row
    bool m_isOver = false;
};

} // namespace krt550
