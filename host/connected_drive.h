#pragma once

#include "host/closing.h"
#include "host/connection.h"
#include "host/last_stop.h"
#include "host/logged_drive.h"
#include "host/logged_link.h"
#include "host/record/record_writer.h"
#include "host/record/recording.h"

#include <memory>
#include <vector>

namespace krt550 {

/// One connected drive with everything that belongs to it: what passes is logged and recorded, and whichever way the
/// program ends, a motor under its control is stopped first. There is at most one at a time.
class CConnectedDrive {
public:
    /// `connection` has been opened. `log` is borrowed; `record` is null without a record. `complain` gets lines for
    /// the person at the terminal.
    CConnectedDrive(std::unique_ptr<CConnection> connection, CCallLog& log, std::unique_ptr<CRecordWriter> record,
                    std::function<void(const QString&)> complain);
    ~CConnectedDrive();
    CConnectedDrive(const CConnectedDrive&) = delete;
    CConnectedDrive& operator=(const CConnectedDrive&) = delete;

    /// For whoever changes something: all of it is logged and recorded.
    CHostDrive& Drive() { return m_recording.Drive(); }
    CParameterLink& Link() { return m_recording.Link(); }
    /// For whoever only looks, again and again: neither logged nor recorded.
    CHostDrive& PlainDrive() { return m_connection->GetDrive(); }
    CParameterLink& PlainLink() { return m_connection->GetLink(); }
    CConnection& Connection() { return *m_connection; }
    /// All that the drive has, in the order of its tree.
    std::vector<ParameterDescription> Parameters();
    CLastStop& LastStop() { return m_lastStop; }
    CClosing& Closing() { return m_closing; }

    /// Records the drive as it is found.
    void Begin();
    /// Records it as it is left; nothing is logged or recorded afterwards. False when the record has gaps.
    bool End();

private:
    std::unique_ptr<CConnection> m_connection;
    std::unique_ptr<CRecordWriter> m_record;
    CLoggedLink m_loggedLink;
    CLoggedDrive m_loggedDrive;
    CRecording m_recording;
    CLastStop m_lastStop;
    CClosing m_closing;
};

} // namespace krt550
