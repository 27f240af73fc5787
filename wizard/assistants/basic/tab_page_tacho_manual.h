#pragma once

#include "wizard/shell/wizard_tab_page.h"

#include <memory>

namespace krt550 {

class CHostDrive;
class CMotorRun;
class CSpeedFeedbackOwner;
class CStripBitmapButton;

/// Tab "Tacho manual" of step 5: turns the motor by hand under local control, and adjusts the tacho in steps. Local
/// control is held from the warning's OK until the button is pressed again, the other tab comes to the front or the
/// page is left; the drive buttons are enabled exactly as long.
class CTabPageTachoManual : public CRowTabPage {
public:
    explicit CTabPageTachoManual(CSpeedFeedbackOwner& page);
    ~CTabPageTachoManual() override;

    bool LoadParameters() override;
    bool ApplyParameters() override;
    /// The drive's state and 4.25, also while the motor turns.
    void AddUpdate(UpdatePlan& plan) override;
    /// Stops the motor and gives local control back, when it is held.
    void GiveUpControl();

protected:
    QWidget* CreateControl(const ControlLayout& control) override;
    bool OnKillActive() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LoadImageButtons();
    void ShowDriveState();
    void EnableDriveButtons(bool enable);
    void StartMotor();
    void StopMotor();
    void CloseContactor();
    void OpenContactor();
    void ToggleLocalControl();
    void TakeControl(CHostDrive& drive);
    void LookAfterControl();
    void ShowRange();
    void Refused(int text, const QString& what = {});
    void SendReference();
    void StepAdjustment(bool up);

    CSpeedFeedbackOwner& m_page;
    std::shared_ptr<CMotorRun> m_run; ///< while local control is held; outlived by a way out that is on the stack
};

} // namespace krt550
