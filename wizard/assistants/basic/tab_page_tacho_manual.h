#pragma once

#include "wizard/shell/wizard_tab_page.h"

namespace krt550 {

class CHostDrive;
class CPageSpeedFeedback;
class CStripBitmapButton;

/// Tab "Tacho manual" of step 5: turns the motor by hand under local control, and adjusts the tacho in steps. Local
/// control is held from the warning's OK until the button is pressed again, the other tab comes to the front or the
/// page is left; the drive buttons are enabled exactly as long.
class CTabPageTachoManual : public CRowTabPage {
    Q_OBJECT

public:
    explicit CTabPageTachoManual(CPageSpeedFeedback& page);

    bool LoadParameters() override;
    bool ApplyParameters() override;

protected:
    QWidget* CreateControl(const ControlLayout& control) override;
    bool OnKillActive() override;
    void OnTimer(int id) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LoadImageButtons();
    void ShowDriveState();
    void EnableDriveButtons(bool enable);
    void Command(bool (CHostDrive::*command)());
    void ToggleLocalControl();
    void SendReference();
    void StepAdjustment(bool up);

    CPageSpeedFeedback& m_page;
    int m_updateTimer = 0;
};

} // namespace krt550
