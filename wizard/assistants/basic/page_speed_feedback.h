#pragma once

#include "wizard/assistants/basic/speed_feedback_owner.h"
#include "wizard/assistants/basic/tab_page_auto.h"
#include "wizard/assistants/basic/tab_page_tacho_manual.h"
#include "wizard/shell/row_page.h"

namespace krt550 {

/// Step 5: which speed feedback is there, and the fine tuning of a tacho. Two tabs, and below them the speeds.
class CPageSpeedFeedback : public CRowPage, private CSpeedFeedbackOwner {
public:
    CPageSpeedFeedback();

    bool CancelPage() override;
    bool LoadParameters() override;
    bool LeavePage() override;

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    bool WriteRows() override;
    void UpdateValues() override;
    void AddUpdate(UpdatePlan& plan) override;

    void OnButtonNext() override;
    void OnButtonBack() override;
    void OnButtonCancel() override;

private:
    CHostDrive* GetHostDrive() const override { return GetDrive(); }
    int GetStep() const override { return GetStepNumber(); }
    void OnTabLoaded(quint16 feedback, bool follows) override;
    void OnRunBegun() override { StartUpdate(); }
    bool ShowSpeeds(CMotorRun& run, quint16 feedback) override;
    void ShowSpeeds(quint16 feedback) override;
    void ShowNotice(const QString& text) override;
    void MarkDone() override;
    void EnableNavigation(bool enable) override;

    void EndRun();
    void BindSpeeds(CParameterGroup* root, QString& errors);
    void BindFeedbackSpeed(CParameterGroup* root, QString& errors);
    bool IsEmfShownTwice() const;
    void ShowSpeed(std::size_t row);
    void FollowFeedback(quint16 feedback);

    CTabPageAuto m_auto{*this};
    CTabPageTachoManual m_manual{*this};
    quint16 m_feedback = 0;     ///< whose speed is the third one
    bool m_loading = false;     ///< the page is: the speeds are shown once, after the tab
    bool m_follows = false;     ///< the tab in front has asked for the update
    bool m_readsFailed = false; ///< and that was told, once until the page is entered again
};

} // namespace krt550
