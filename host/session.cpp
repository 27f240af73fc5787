#include "host/session.h"

#include "host/call_log.h"
#include "host/connect_drive.h"
#include "host/drive_stage.h"
#include "host/interrupt.h"
#include "host/logged_drive.h"
#include "host/logged_link.h"
#include "host/play/parser.h"
#include "host/scaled_clock.h"
#include "host/tool.h"
#include "hostlib/tolvbo32/drive_description.h"

#include <QApplication>
#include <QDir>

namespace krt550 {
namespace {

/// What was asked for, or the file that comes with the program.
QString OrBesideProgram(const QString& asked, const char* relativePath) {
    if (!asked.isEmpty())
        return asked;
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(relativePath));
}

} // namespace

CSession::CSession(ToolOptions options, Output print, Output complain)
    : m_options(std::move(options)), m_print(std::move(print)), m_complain(std::move(complain)) {
    m_options.moduleFile = OrBesideProgram(m_options.moduleFile, KRT550_MODULE_PATH);
    m_options.parameterFile = OrBesideProgram(m_options.parameterFile, KRT550_PARAMETER_PATH);
    m_options.wizardDirectory = OrBesideProgram(m_options.wizardDirectory, KRT550_WIZARD_PATH);
}

CSession::~CSession() = default;

int CSession::Run() {
    CScaledClock clock(CClock::Current(), m_options.speed);
    const ClockScope scope(clock);
    return Prepare() ? RunWizard() : kExitUsage;
}

bool CSession::Prepare() {
    QString error;
    if (!QDir(m_options.wizardDirectory).exists())
        return Complain(
            QStringLiteral("wizard directory %1: there is no such directory").arg(m_options.wizardDirectory));
    if (!ReadScript() || !Connect())
        return false;
    if (!m_module.Load(m_options.moduleFile, error))
        return Complain(error);
    return OpenLog();
}

bool CSession::ReadScript() {
    QStringList errors;
    if (!m_options.playFile.isEmpty())
        m_script = ReadPlayFile(m_options.playFile, errors);
    return errors.isEmpty() || Complain(errors.join(QLatin1Char('\n')));
}

bool CSession::Connect() {
    QStringList errors;
    auto parameters = ReadDriveDescriptionFile(m_options.parameterFile, errors);
    if (!parameters)
        return Complain(errors.join(QLatin1Char('\n')));
    QString error;
    m_connection = ConnectDrive(m_options.drive, std::move(*parameters), m_options.wizardDirectory, error);
    return m_connection || Complain(error);
}

bool CSession::OpenLog() {
    if (m_options.logFile.isEmpty())
        return true;
    const bool toStandardOutput = m_options.logFile == QLatin1String("-");
    m_logFile.setFileName(m_options.logFile);
    const bool opened =
        toStandardOutput ? m_logFile.open(stdout, QIODevice::WriteOnly) : m_logFile.open(QIODevice::WriteOnly);
    return opened ||
           Complain(QStringLiteral("log %1: cannot be written: %2").arg(m_options.logFile, m_logFile.errorString()));
}

bool CSession::Complain(const QString& text) {
    m_complain(QStringLiteral("krt550tool: ") + text);
    return false;
}

int CSession::RunWizard() {
    CCallLog log(m_logFile.isOpen() ? &m_logFile : nullptr, m_script.has_value());
    CLoggedLink link(m_connection->GetLink(), log);
    m_connection->SetTreeLink(&link);
    CLoggedDrive drive(m_connection->GetDrive(), log);
    CDriveStage stage(*m_connection, log);
    std::optional<CPlayer> player;
    if (m_script) {
        player.emplace(std::move(*m_script), stage, m_options.shotDirectory, PlayOutput{m_print, m_complain});
        player->Begin();
    }
    const CInterrupt interrupt;
    const int result = m_module.Run(&drive);
    m_print(QStringLiteral("RunWizard returned %1").arg(result));
    const bool played = !player || player->Finish();
    // A help window may still be open.
    QApplication::closeAllWindows();
    m_connection->SetTreeLink(nullptr);
    return result == 0 && played && !interrupt.HasCome() ? 0 : kExitFailure;
}

} // namespace krt550
