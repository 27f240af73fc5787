#pragma once

#include <QHash>

namespace krt550 {

class CParameter;

/// The reads of one load: however often a parameter is asked for, the drive is asked once.
class CReadOnce {
public:
    /// Whether the parameter was read; a failure is shown with the library's text when the drive is asked. False for
    /// null.
    bool Read(CParameter* parameter);
    /// What became of a read that somebody else has made.
    void Know(const CParameter* parameter, bool read) { m_read.insert(parameter, read); }

private:
    QHash<const CParameter*, bool> m_read;
};

} // namespace krt550
