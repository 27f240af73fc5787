#include "host/record/trace_sampler.h"

#include "host/record/drive_story.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <algorithm>
#include <span>

namespace krt550 {
namespace {

constexpr qint64 kPeriodMs = 50;
/// What a call may take before it leaves the rest to the next one.
constexpr qint64 kLongestMs = 10;
/// Time that is left to others, as a multiple of the time that the reading takes.
constexpr qint64 kOthersShare = 4;

} // namespace

std::optional<qint64> CTraceSampler::Read(qint64 run) {
    const qint64 begin = m_recorder.Now();
    if (m_next == 0) {
        m_begin = begin;
        m_sample = {};
    }
    const bool announces = m_story.IsLineFree();
    if (announces)
        m_link.Announce(std::span(kTraceRegisters).subspan(m_next));
    bool answers = true;
    while (answers && m_next < std::size(kTraceRegisters) && m_recorder.Now() - begin < kLongestMs)
        answers = ReadNext();
    if (announces)
        m_link.Announce({});
    if (!answers) {
        m_next = 0;
        return std::nullopt;
    }
    const qint64 now = m_recorder.Now();
    const qint64 rest = kOthersShare * (now - begin);
    if (m_next < std::size(kTraceRegisters))
        return rest;
    m_next = 0;
    m_recorder.NoteSample(run, m_begin, m_sample);
    return std::max({rest, m_begin + kPeriodMs - now, qint64{1}});
}

/// The next signal; the wizard may have read it a moment ago. False when the drive did not answer.
bool CTraceSampler::ReadNext() {
    const std::size_t place = m_next++;
    const quint16 reg = kTraceRegisters[place];
    const ParameterDescription* parameter = m_story.Find(reg);
    if (!parameter)
        return true;
    quint16 word = m_story.Known(reg).value_or(0);
    if (m_story.SeenAt(reg).value_or(-kPeriodMs) <= m_recorder.Now() - kPeriodMs) {
        if (!m_link.ReadWord(reg, word))
            return false;
        m_story.Seen(reg, word);
    }
    m_sample[place] = ShownNumber(*parameter, word);
    return true;
}

} // namespace krt550
