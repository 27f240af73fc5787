#pragma once

#include "host/record/value_reading.h"
#include "hostlib/tolvbo32/clock.h"

#include <optional>

namespace krt550 {

/// The begin of a record: the file is opened, and what the drive is like is read before anybody changes it. That is
/// done from the event loop, a piece a turn, while nobody else has announced reads; what is left then is done at once
/// when somebody is about to change something.
class CAsFound {
public:
    /// All borrowed. `link` is the one behind the decorators.
    CAsFound(CParameterLink& link, CDriveStory& story, CRecorder& recorder)
        : m_link(link), m_story(story), m_recorder(recorder), m_timer([this] { TakeTurn(); }) {}

    /// From the event loop.
    void BeginSoon();
    /// Called before anything is changed: returns when everything is read, or 5 s are over, and when the disk has it,
    /// or another 5 s are over. At once when that has been done.
    void Finish();

private:
    CValueReading& Begun();
    void TakeTurn();

    CParameterLink& m_link;
    CDriveStory& m_story;
    CRecorder& m_recorder;
    CClockTimer m_timer;
    std::optional<CValueReading> m_reading; ///< from the begin on
    bool m_isFinished = false;
};

} // namespace krt550
