#pragma once

#include "host/connection.h"
#include "host/options.h"
#include "host/play/player.h"
#include "host/wizard_module.h"

#include <QFile>

#include <memory>
#include <optional>

namespace krt550 {

/// One run of the tool with options that make sense: files are opened, the drive is connected, the wizard runs.
class CSession {
public:
    using Output = std::function<void(const QString&)>;

    CSession(ToolOptions options, Output print, Output complain);
    ~CSession();

    /// Returns the exit status.
    int Run();

private:
    bool Prepare();
    bool ReadScript();
    bool OpenLog();
    bool Connect();
    bool Complain(const QString& text);
    int RunWizard();

    ToolOptions m_options;
    Output m_print;
    Output m_complain;
    std::optional<PlayScript> m_script;
    QFile m_logFile;
    CWizardModule m_module;
    std::unique_ptr<CConnection> m_connection;
};

} // namespace krt550
