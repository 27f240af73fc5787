#include "host/record/as_found.h"

#include "host/record/drive_story.h"

#include <algorithm>

namespace krt550 {
namespace {

/// After the first paint: what is still to be done until the window can be worked with goes first.
constexpr qint64 kBehindPaintMs = 100;
constexpr qint64 kShortestPauseMs = 1;
/// What a turn may take before it begins no other piece.
constexpr qint64 kLongestReadMs = 10;
/// When to look again whether the line is free.
constexpr qint64 kLookAgainMs = 10;
/// By then the file is open, or there is something to tell.
constexpr qint64 kOpenMs = 1000;

} // namespace

void CAsFound::BeginSoon() {
    if (!m_reading)
        m_timer.StartOnce(kBehindPaintMs);
}

CValueReading& CAsFound::Begun() {
    if (!m_reading) {
        m_recorder.Begin();
        m_story.Describe();
        m_reading.emplace(CValueReading::Moment::AsFound, m_link, m_story, m_recorder);
    }
    return *m_reading;
}

/// On a slow line as much time is left to others as the reading takes.
void CAsFound::TakeTurn() {
    CValueReading& reading = Begun();
    const qint64 begin = m_recorder.Now();
    m_recorder.TellTrouble();
    if (reading.IsOver())
        return;
    if (!m_story.IsLineFree())
        return m_timer.StartOnce(kLookAgainMs);
    while (!reading.IsOver() && m_recorder.Now() - begin < kLongestReadMs)
        reading.ReadPiece();
    m_timer.StartOnce(reading.IsOver() ? kOpenMs : std::max(m_recorder.Now() - begin, kShortestPauseMs));
}

void CAsFound::Finish() {
    if (std::exchange(m_isFinished, true))
        return;
    if (!Begun().IsOver())
        m_reading->ReadRest();
    m_recorder.Settle(false);
    m_timer.Stop();
}

} // namespace krt550
