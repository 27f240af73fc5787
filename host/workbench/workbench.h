#pragma once

#include "host/workbench/drive_watch.h"
#include "host/workbench/stop.h"
#include "host/workbench/stop_strip.h"
#include "host/workbench/tuning.h"

#include <QMainWindow>
#include <QSettings>

#include <memory>

class QAction;
class QDockWidget;
class QLabel;
class QMenu;

namespace krt550 {

class CConnectedDrive;
class CDrivePanel;
class CParameterPanel;
class CSession;
class CTrendDoor;

/// The main window: one drive at a time, docks around it, and a Stop that reaches it from everywhere.
class CWorkbench : public QMainWindow {
public:
    /// Borrowed.
    explicit CWorkbench(CSession& session);
    ~CWorkbench() override;

    /// Shows the window; then connects the drive of this name, or asks for one when the name is empty.
    void Open(const QString& drive);
    /// Connects the drive of this name in the place of the one that is connected, which is left first. Returns why not,
    /// or an empty text; `wasNameWrong` then tells a wrong name from a drive that is not there. Handles events.
    QString Connect(const QString& name, bool* wasNameWrong = nullptr);
    /// Stops the motor, waits until it stands, and disconnects; all of it from the event loop.
    void Leave();
    /// Null: not connected.
    CConnectedDrive* ConnectedDrive() { return m_drive.get(); }
    void OpenConnectDialog(const QString& warning = {});
    /// The wizard takes local control itself: what this window holds is given back before, at standstill.
    void OpenWizard();
    /// Stops the motor, closes whatever is open, and the window.
    void EndFromOutside();

    /// Every drive was left at standstill, and the records have no gaps.
    bool HasGoneWell() const { return m_hasGoneWell; }
    /// The drive that Open was given has a name that cannot be.
    bool WasNameWrong() const { return m_wasNameWrong; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    // workbench.cpp: what stands where
    void MakePanels();
    void MakeMenus();
    void MakeStopBar();
    QDockWidget* AddDock(const char* name, const QString& title, QWidget* panel, Qt::DockWidgetArea area);
    void RestorePlaces();
    void SavePlaces();
    void OpenFirst(const QString& drive);

    // workbench_drive.cpp: the drive's life
    void Take(std::unique_ptr<CConnectedDrive> drive, const QString& name);
    void LeaveStep();
    void Part();
    void HandOut();
    void SetShared(bool isShared);
    void ShowState();
    void ShowStop();
    void FollowModal();
    void ShowTuning();
    QString LinkText() const;

    CSession& m_session;
    QSettings m_settings;
    std::unique_ptr<CConnectedDrive> m_drive; ///< null: not connected
    QString m_driveName;
    std::vector<ParameterDescription> m_parameters; ///< all that the drive has
    CStop m_stop;
    CStopStrip m_strip{m_stop, *this};
    CDriveWatch m_watch;
    CClockTimer m_leaving{[this] { LeaveStep(); }};
    CDrivePanel* m_panel = nullptr;
    CTrendDoor* m_trends = nullptr;
    CParameterPanel* m_parameterPanel = nullptr;
    QMenu* m_viewMenu = nullptr;
    QLabel* m_link = nullptr;
    QAction* m_disconnect = nullptr;
    QAction* m_wizard = nullptr;
    QWidget* m_stopButton = nullptr;
    CTuningWatch m_tuning;
    bool m_isWizardOpen = false;
    bool m_hasTuning = false; ///< what the wizard has changed is to be looked at once the motor stands
    bool m_isClosing = false;
    bool m_endsFromOutside = false; ///< nobody is there to answer a box
    bool m_hasGoneWell = true;
    bool m_wasNameWrong = false;
};

} // namespace krt550
