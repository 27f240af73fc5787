#pragma once

#include "drive/named_drive.h"
#include "host/connected_drive.h"
#include "host/options.h"

namespace krt550 {

/// A record for a session with the drive of that name; null, and the reason in `error`, when it cannot be opened.
std::unique_ptr<CRecordWriter> OpenRecord(const QString& path, const QString& drive,
                                          const std::function<void(const QString&)>& complain, QString& error);

/// Connects drives by their names, with the files, the log and the record that the options of this run say.
class CConnector {
public:
    using Complain = std::function<void(const QString&)>;

    /// `files` are those of the options; `log` is borrowed. `complain` gets lines for the person at the terminal.
    CConnector(ToolOptions options, DriveFiles files, CCallLog& log, Complain complain)
        : m_options(std::move(options)), m_files(std::move(files)), m_log(log), m_complain(std::move(complain)) {}

    /// The drive that has answered; null, and the reason in `error`, when there is none. `isWrong` tells apart a wrong
    /// name or an unusable file from a drive that is not there. Waits as long as the line's tries last.
    std::unique_ptr<CConnectedDrive> Connect(const QString& name, QString& error, bool& isWrong);

private:
    std::unique_ptr<CRecordWriter> RecordOf(const QString& drive, QString& error);

    ToolOptions m_options;
    DriveFiles m_files;
    CCallLog& m_log;
    Complain m_complain;
};

} // namespace krt550
