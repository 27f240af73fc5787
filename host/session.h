#pragma once

#include "host/connection.h"
#include "host/line_writer.h"
#include "host/options.h"
#include "host/play/player.h"
#include "host/record/record_writer.h"
#include "host/wizard_module.h"

#include <memory>
#include <optional>

namespace krt550 {

/// One run of the tool with options that make sense: files are opened, the drive is connected, the wizard runs.
class CSession {
public:
    explicit CSession(ToolOptions options);
    ~CSession();
    CSession(const CSession&) = delete;
    CSession& operator=(const CSession&) = delete;

    /// Returns the exit status.
    int Run();

private:
    bool Prepare();
    bool ReadScript();
    bool OpenLog();
    bool OpenRecord();
    bool Connect();
    bool Complain(const QString& text);
    std::unique_ptr<CClock> MakeClock() const;
    int RunWizard();

    ToolOptions m_options;
    CLineWriter m_errors;
    CLineWriter m_output;
    int m_logDescriptor = -1;
    std::optional<CLineWriter> m_logFile;
    CLineWriter* m_log = nullptr;            ///< one of the two above; null without a log
    std::unique_ptr<CRecordWriter> m_record; ///< null without a record
    std::optional<PlayScript> m_script;
    CWizardModule m_module;
    std::unique_ptr<CConnection> m_connection;
};

} // namespace krt550
