#pragma once

#include "host/call_log.h"
#include "host/connector.h"
#include "host/line_writer.h"
#include "host/options.h"
#include "host/play/action.h"
#include "host/wizard_module.h"

#include <memory>
#include <optional>

namespace krt550 {

struct Hands;

/// What a run of the tool with options that make sense works with: its clock, its output, the module, the log, and
/// whatever connects drives.
class CSession {
public:
    /// Returns the exit status.
    using Work = std::function<int(CSession&)>;

    explicit CSession(ToolOptions options);
    ~CSession();
    CSession(const CSession&) = delete;
    CSession& operator=(const CSession&) = delete;

    /// Opens everything and does the work. Returns the exit status.
    int Run(const Work& work);

    const ToolOptions& Options() const { return m_options; }
    const CWizardModule& Module() const { return m_module; }
    CConnector& Connector() { return *m_connector; }
    CCallLog& Log() { return *m_callLog; }
    bool HasLogFailed() const { return m_log && m_log->HasFailed(); }
    /// Null without a play.
    const PlayScript* Script() const { return m_script ? &*m_script : nullptr; }
    /// What a play works the windows with; there is a script.
    const Hands& PlayHands() const { return *m_hands; }
    void Print(const QString& text) { m_output.Write(text.toLocal8Bit()); }
    /// A line on standard error as it is.
    void PrintError(const QString& text) { m_errors.Write(text.toLocal8Bit()); }
    /// A complaint of the program; always false.
    bool Complain(const QString& text);

private:
    bool Prepare();
    bool ReadScript();
    bool ReadFiles();
    bool OpenLog();
    std::unique_ptr<CClock> MakeClock() const;

    ToolOptions m_options;
    CLineWriter m_errors;
    CLineWriter m_output;
    int m_logDescriptor = -1;
    std::optional<CLineWriter> m_logFile;
    CLineWriter* m_log = nullptr; ///< one of the two above; null without a log
    std::optional<PlayScript> m_script;
    const Hands* m_hands = nullptr;    ///< null without a script
    std::optional<DriveFiles> m_files; ///< until they are handed on
    CWizardModule m_module;
    std::optional<CCallLog> m_callLog;
    std::optional<CConnector> m_connector;
};

} // namespace krt550
