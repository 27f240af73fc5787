// The connected drive's life in the main window.
#include "host/connected_drive.h"
#include "host/link/wire_place.h"
#include "host/parameters/parameter_panel.h"
#include "host/session.h"
#include "host/trends/trend_door.h"
#include "host/workbench/connect_dialog.h"
#include "host/workbench/drive_panel.h"
#include "host/workbench/tuning_dialog.h"
#include "host/workbench/workbench.h"
#include "modbus/register_map.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QStatusBar>

namespace krt550 {
namespace {

constexpr const char* kRecentKey = "connect/recent";
constexpr qsizetype kMostRecent = 8;
constexpr qint64 kLookMs = 50;

} // namespace

void CWorkbench::OpenFirst(const QString& drive) {
    if (drive.isEmpty())
        return OpenConnectDialog();
    const QString error = Connect(drive, &m_wasNameWrong);
    if (error.isEmpty())
        return;
    if (!m_wasNameWrong)
        return OpenConnectDialog(error);
    m_session.Complain(error);
    close();
}

void CWorkbench::OpenConnectDialog(const QString& warning) {
    if (m_isClosing)
        return;
    CConnectDialog dialog(
        m_settings.value(QLatin1String(kRecentKey)).toStringList(), warning,
        [this](const QString& name) { return Connect(name); }, this);
    dialog.exec();
}

QString CWorkbench::Connect(const QString& name, bool* wasNameWrong) {
    Leave();
    while (m_drive)
        CClock::Current().WaitForEvents(kLookMs);
    if (m_isClosing)
        return QStringLiteral("the program ends");
    QString error;
    bool isWrong = false;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    std::unique_ptr<CConnectedDrive> drive = m_session.Connector().Connect(name, error, isWrong);
    if (drive)
        Take(std::move(drive), name);
    QApplication::restoreOverrideCursor();
    if (wasNameWrong)
        *wasNameWrong = isWrong;
    return error;
}

void CWorkbench::Take(std::unique_ptr<CConnectedDrive> drive, const QString& name) {
    m_drive = std::move(drive);
    m_driveName = name;
    m_drive->Begin();
    QStringList recent = m_settings.value(QLatin1String(kRecentKey)).toStringList();
    recent.removeAll(name);
    recent.prepend(name);
    m_settings.setValue(QLatin1String(kRecentKey), recent.mid(0, kMostRecent));
    HandOut();
}

/// Whoever works with the drive gets it, or is told that there is none.
void CWorkbench::HandOut() {
    m_parameters = m_drive ? m_drive->Parameters() : std::vector<ParameterDescription>();
    m_hasTuning = false;
    m_stop.SetDrive(m_drive.get());
    m_watch.SetDrive(m_drive.get(), m_parameters);
    m_panel->SetDrive(m_drive.get(), m_parameters);
    m_parameterPanel->SetDrive(m_drive ? &m_drive->Link() : nullptr, m_parameters);
    m_trends->SetDrive(m_drive ? &m_drive->PlainLink() : nullptr, m_parameters);
    m_disconnect->setEnabled(m_drive != nullptr);
    m_wizard->setEnabled(m_drive != nullptr);
    m_stopButton->setEnabled(m_drive != nullptr);
    setWindowTitle(m_drive ? QStringLiteral("%1 \u2013 KRT550 workbench").arg(m_driveName)
                           : QStringLiteral("KRT550 workbench"));
    ShowState();
}

void CWorkbench::Leave() {
    if (!m_drive || m_leaving.IsActive())
        return;
    if (m_isWizardOpen)
        return m_drive->Closing().Begin(); // stops first, too; OpenWizard goes on from there
    m_drive->LastStop().BeginAnew();
    statusBar()->showMessage(QStringLiteral("The motor is stopped before the drive is disconnected"));
    m_leaving.Start(kLookMs);
    m_drive->LastStop().Stop();
}

void CWorkbench::LeaveStep() {
    if (!m_drive->LastStop().Stop())
        return;
    m_leaving.Stop();
    Part();
    if (m_isClosing)
        close();
}

void CWorkbench::Part() {
    std::unique_ptr<CConnectedDrive> drive = std::move(m_drive);
    HandOut();
    statusBar()->clearMessage();
    const bool isSafe = drive->LastStop().HandBack();
    const bool isRecorded = drive->End();
    m_hasGoneWell = m_hasGoneWell && isSafe && isRecorded;
    drive.reset();
    if (!isSafe && !m_endsFromOutside)
        QMessageBox::warning(this, QStringLiteral("Not stopped for certain"),
                             QStringLiteral("The drive did not confirm the stop, or did not take local control back. "
                                            "Use the E-stop if the motor turns.\n\nA drive that does not hear this "
                                            "program any more stops by itself after the time in 30.29."));
}

void CWorkbench::OpenWizard() {
    if (!m_drive || m_isWizardOpen || m_leaving.IsActive())
        return;
    if (m_drive->Drive().IsLocalControlActive())
        if (const QString error = m_panel->ReleaseControl(); !error.isEmpty())
            return;
    m_stop.SetDrive(m_drive.get()); // nothing is left to be stopped
    m_tuning.Begin(*m_drive, m_parameters);
    m_strip.ShowText({});
    SetShared(true);
    m_session.Module().Run(&m_drive->Drive());
    SetShared(false);
    m_hasTuning = true;
    m_watch.LookSoon();
    if (!m_isClosing)
        return;
    m_drive->Closing().End();
    Leave();
}

void CWorkbench::ShowTuning() {
    if (!m_drive || !m_hasTuning || m_leaving.IsActive() || QApplication::activeModalWidget())
        return;
    m_hasTuning = false;
    const std::vector<ValueChange> changes = m_tuning.Changes(*m_drive);
    if (changes.empty())
        return;
    CTuningDialog dialog(*m_drive, m_parameters, changes, this);
    dialog.exec();
}

void CWorkbench::SetShared(bool isShared) {
    m_isWizardOpen = isShared;
    m_watch.SetShared(isShared);
    m_trends->SetShared(isShared);
    m_parameterPanel->SetShared(isShared);
    FollowModal();
}

void CWorkbench::EndFromOutside() {
    m_isClosing = true;
    m_endsFromOutside = true;
    SavePlaces();
    if (m_drive)
        m_drive->Closing().Begin();
    else
        QApplication::closeAllWindows();
}

void CWorkbench::ShowState() {
    m_panel->ShowState(m_watch.State());
    m_link->setText(LinkText());
    const bool stands = m_watch.State().Answers() && m_watch.State().Has(wire_status::kStopped);
    if (m_hasTuning && stands)
        QMetaObject::invokeMethod(
            this, [this] { ShowTuning(); }, Qt::QueuedConnection);
}

void CWorkbench::ShowStop() {
    m_panel->ShowStop();
    m_strip.ShowText(m_stop.Text());
    m_panel->ShowState(m_watch.State());
    if (!m_stop.Text().isEmpty())
        statusBar()->showMessage(m_stop.Text());
}

QString CWorkbench::LinkText() const {
    if (!m_drive)
        return QStringLiteral("Not connected");
    const SeenState& state = m_watch.State();
    if (!state.Answers())
        return QStringLiteral("%1: no answer since %2")
            .arg(m_driveName, state.silentSince->toString(QStringLiteral("HH:mm:ss")));
    return (IsOnWire(m_driveName) ? QStringLiteral("%1: connected") : QStringLiteral("%1: simulated drive"))
        .arg(m_driveName);
}

void CWorkbench::FollowModal() {
    m_strip.Follow(m_drive && (m_isWizardOpen || m_watch.State().Has(wire_status::kLocalControl)));
}

} // namespace krt550
