#pragma once

#include "wizard/assistants/basic/autotuning_page.h"

namespace krt550 {

class CColorStatic;

/// A motor whose direction is changed by its field: the exciter's settings, and a test in which somebody sends the
/// field current forward and back by hand.
class CPageFieldReversal : public CAutotuningPage {
public:
    CPageFieldReversal();

    bool LoadParameters() override;

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    bool StartsUpdate(bool bound, const QString& errors) const override;
    void AddUpdate(UpdatePlan& plan) override;
    bool RefreshValues() override;
    /// The test finds no values.
    void RereadResults() override {}
    void OnRunning(CMotorRun* run) override;
    QWidget* CreateControl(const ControlLayout& control) override;

private:
    /// What 45.07 takes.
    enum Direction : quint16 { kOff = 0, kForward = 1, kReverse = 2 };

    void OnButtonDirection(Direction direction);
    void OnButtonStop();
    void EnableDirections(bool forward, bool reverse);

    CColorStatic* m_actualConverter = nullptr;
    CParameter* m_command = nullptr;      ///< 45.07
    CParameter* m_detectedType = nullptr; ///< 4.06
    CMotorRun* m_run = nullptr;           ///< while the drive obeys it
};

} // namespace krt550
