#pragma once

#include "host/record/as_found.h"
#include "host/record/drive_story.h"
#include "host/record/recorded_drive.h"
#include "host/record/recorded_link.h"
#include "host/record/run_watch.h"
#include "host/record/window_watch.h"

#include <memory>

namespace krt550 {

class CRecordWriter;

/// Everything that a session does, written down as it happens: stands between the wizard and the drive. Without a
/// writer it passes everything on and writes nothing.
class CRecording {
public:
    /// All borrowed; `writer` may be null.
    CRecording(CRecordWriter* writer, CHostDrive& drive, CParameterLink& link);
    ~CRecording();

    /// What the wizard gets in the place of the drive and of its link.
    CHostDrive& Drive();
    CParameterLink& Link();

    /// Has what the drive is like read and recorded behind the first window that is painted, or before the first thing
    /// that is done to it, whichever comes first; reading then takes 5 s at most. What that does not get to is recorded
    /// when it is first read.
    void Begin();
    /// Reads and records what the drive is like now.
    void End();

private:
    struct Parts;

    CHostDrive& m_drive;
    CParameterLink& m_link;
    std::unique_ptr<Parts> m_parts; ///< null without a writer
};

} // namespace krt550
