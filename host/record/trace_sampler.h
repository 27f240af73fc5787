#pragma once

#include "host/record/recorder.h"

namespace krt550 {

class CDriveStory;
class CParameterLink;

/// Reads the trace of a run, a sample every 50 ms, between the wizard's calls. On a slow line it takes a fifth of the
/// time at most and reads one register at a time, so that somebody who stops the motor waits for no more than the one
/// request that is on its way.
class CTraceSampler {
public:
    /// All borrowed. `link` is the one behind the decorators.
    CTraceSampler(CParameterLink& link, CDriveStory& story, CRecorder& recorder)
        : m_link(link), m_story(story), m_recorder(recorder) {}

    /// A sample that was begun for another run is forgotten.
    void Begin() { m_next = 0; }
    /// Reads what is due. Returns after how many milliseconds it wants to be called again, or nothing when the drive
    /// did not answer.
    std::optional<qint64> Read(qint64 run);

private:
    bool ReadNext();

    CParameterLink& m_link;
    CDriveStory& m_story;
    CRecorder& m_recorder;
    std::size_t m_next = 0; ///< place of the signal that is read next
    qint64 m_begin = 0;     ///< of the sample [ms]
    TraceSample m_sample;
};

} // namespace krt550
