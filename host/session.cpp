#include "host/session.h"

#include "host/hands/hands.h"
#include "host/part.h"
#include "host/play/parser.h"
#include "host/tool.h"
#include "hostlib/tolvbo32/scaled_clock.h"

#include <QDir>

#include <unistd.h>

namespace krt550 {
CSession::CSession(ToolOptions options)
    : m_options(std::move(options)), m_errors(STDERR_FILENO, QStringLiteral("standard error"), [](const QString&) {}),
      m_output(STDOUT_FILENO, QStringLiteral("standard output"), [this](const QString& text) { Complain(text); }) {
    m_options.moduleFile = OrBesideProgram(m_options.moduleFile, KRT550_MODULE_PATH);
    m_options.parameterFile = OrBesideProgram(m_options.parameterFile, KRT550_PARAMETER_PATH);
    m_options.wizardDirectory = OrBesideProgram(m_options.wizardDirectory, KRT550_WIZARD_PATH);
}

CSession::~CSession() {
    if (m_logDescriptor >= 0)
        close(m_logDescriptor);
}

int CSession::Run(const Work& work) {
    const std::unique_ptr<CClock> clock = MakeClock();
    const ClockScope scope(*clock);
    if (!Prepare())
        return kExitUsage;
    m_callLog.emplace(m_log ? [this](const QByteArray& line) { m_log->Write(line); } : CCallLog::Output(),
                      m_script.has_value());
    m_connector.emplace(m_options, *std::move(m_files), *m_callLog, [this](const QString& text) { Complain(text); });
    return work(*this);
}

/// Nobody watches a play of which no speed is asked: its time passes as fast as everything is done, and the same
/// happens on a busy machine as on an idle one.
std::unique_ptr<CClock> CSession::MakeClock() const {
    if (m_options.IsUnwatched())
        return std::make_unique<CSteppedClock>();
    return std::make_unique<CScaledClock>(CClock::Current(), std::max(m_options.speed, 1));
}

bool CSession::Prepare() {
    QString error;
    if (!QDir(m_options.wizardDirectory).exists())
        return Complain(
            QStringLiteral("wizard directory %1: there is no such directory").arg(m_options.wizardDirectory));
    if (!ReadScript() || !ReadFiles())
        return false;
    if (!m_module.Load(m_options.moduleFile, error))
        return Complain(error);
    return OpenLog();
}

bool CSession::ReadScript() {
    if (m_options.playFile.isEmpty())
        return true;
    QStringList errors;
    m_script = ReadPlayFile(m_options.playFile, errors);
    if (!m_script)
        return Complain(errors.join(QLatin1Char('\n')));
    QString error;
    if (auto* const hands = LoadPart<decltype(krt550_hands)>("hands", error))
        m_hands = hands();
    return m_hands || Complain(error);
}

bool CSession::ReadFiles() {
    QStringList errors;
    m_files = ReadDriveFiles(m_options.parameterFile, m_options.macroFile, errors);
    return m_files || Complain(errors.join(QLatin1Char('\n')));
}

bool CSession::OpenLog() {
    if (m_options.logFile.isEmpty())
        return true;
    if (m_options.logFile == QLatin1String("-")) {
        m_log = &m_output;
        return true;
    }
    QString error;
    const QString name = QLatin1String("log ") + m_options.logFile;
    m_logDescriptor = OpenLogFile(m_options.logFile, error);
    if (m_logDescriptor < 0)
        return Complain(QStringLiteral("%1: cannot be written: %2").arg(name, error));
    m_log = &m_logFile.emplace(m_logDescriptor, name, [this](const QString& text) { Complain(text); });
    return true;
}

bool CSession::Complain(const QString& text) {
    m_errors.Write("krt550tool: " + text.toLocal8Bit());
    return false;
}

} // namespace krt550
