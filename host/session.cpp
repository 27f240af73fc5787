#include "host/session.h"

#include "host/call_log.h"
#include "host/connect_drive.h"
#include "host/connected_drive.h"
#include "host/drive_stage.h"
#include "host/interrupt.h"
#include "host/play/parser.h"
#include "host/record/record_place.h"
#include "host/tool.h"
#include "hostlib/tolvbo32/scaled_clock.h"

#include <QApplication>
#include <QDateTime>
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

int CSession::Run() {
    const std::unique_ptr<CClock> clock = MakeClock();
    const ClockScope scope(*clock);
    if (!Prepare())
        return kExitUsage;
    QString error;
    if (!m_connection->Open(error)) {
        Complain(error);
        return kExitFailure;
    }
    return RunWizard();
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
    if (!ReadScript() || !Connect())
        return false;
    if (!m_module.Load(m_options.moduleFile, error))
        return Complain(error);
    return OpenLog() && OpenRecord();
}

bool CSession::ReadScript() {
    QStringList errors;
    if (!m_options.playFile.isEmpty())
        m_script = ReadPlayFile(m_options.playFile, errors);
    return errors.isEmpty() || Complain(errors.join(QLatin1Char('\n')));
}

bool CSession::Connect() {
    QStringList errors;
    auto files = ReadDriveFiles(m_options.parameterFile, m_options.macroFile, errors);
    if (!files)
        return Complain(errors.join(QLatin1Char('\n')));
    QString error;
    m_connection = ConnectDrive(m_options.drive, *std::move(files), m_options.wizardDirectory, error);
    return m_connection || Complain(error);
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

/// A record that was asked for has to be there; the one that is kept anyway holds nobody up.
bool CSession::OpenRecord() {
    const bool asked = !m_options.recordFile.isEmpty();
    if (m_options.recordFile == QLatin1String("none") || (!asked && m_script))
        return true;
    const QDateTime now = QDateTime::currentDateTime();
    const QString path = asked ? m_options.recordFile : RecordPlace(m_options.drive, now.date());
    QString error;
    m_record = std::make_unique<CRecordWriter>([this](const QString& text) { Complain(text); });
    if (m_record->Open(path,
                       {.drive = m_options.drive,
                        .program = VersionText().trimmed(),
                        .started = now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODateWithMs)},
                       error))
        return true;
    m_record.reset();
    return Complain(QStringLiteral("record %1: cannot be written: %2").arg(path, error)) || !asked;
}

bool CSession::Complain(const QString& text) {
    m_errors.Write("krt550tool: " + text.toLocal8Bit());
    return false;
}

int CSession::RunWizard() {
    CCallLog log(m_log ? [this](const QByteArray& line) { m_log->Write(line); } : CCallLog::Output(),
                 m_script.has_value());
    CConnectedDrive drive(std::move(m_connection), log, std::move(m_record),
                          [this](const QString& text) { Complain(text); });
    CDriveStage stage(drive.Connection(), log);
    std::optional<CPlayer> player;
    if (m_script) {
        player.emplace(std::move(*m_script), stage, drive.Closing(), m_options.shotDirectory,
                       PlayOutput{[this](const QString& line) { m_output.Write(line.toLocal8Bit()); },
                                  [this](const QString& line) { m_errors.Write(line.toLocal8Bit()); }});
        player->Begin();
    }
    const CInterrupt interrupt([&drive] { drive.Closing().Begin(); });
    drive.Begin();
    const int result = m_module.Run(&drive.Drive());
    drive.Closing().End();
    bool well = drive.LastStop().Finish() && result == 0;
    m_output.Write("RunWizard returned " + QByteArray::number(result));
    if (player && !player->Finish())
        well = false;
    // A help window may still be open.
    QApplication::closeAllWindows();
    const bool logged = drive.End() && (!m_log || !m_log->HasFailed());
    return well && logged && !interrupt.HasCome() ? 0 : kExitFailure;
}

} // namespace krt550
