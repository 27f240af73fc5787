#pragma once

#include "wizard/assistants/basic/speed_feedback_owner.h"
#include "wizard/assistants/basic/tab_page_auto.h"
#include "wizard/assistants/basic/tab_page_tacho_manual.h"
#include "wizard/shell/row_page.h"

namespace krt550 {

/// Step 5: which speed feedback is there, and the fine tuning of a tacho. Two tabs, and below them the speeds.
class CPageSpeedFeedback : public CRowPage, private CSpeedFeedbackOwner {
    Q_OBJECT

public:
    CPageSpeedFeedback();

    bool CancelPage() override;
    bool LeavePage() override;

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    bool WriteRows() override;
    /// The tabs refresh themselves.
    void UpdateValues() override {}

    void OnButtonNext() override;
    void OnButtonBack() override;
    void OnButtonCancel() override;

private:
    CHostDrive* GetHostDrive() const override { return GetDrive(); }
    int GetStep() const override { return GetStepNumber(); }
    void PostRefreshDisplays(quint16 feedback) override;
    void ShowNotice(const QString& text) override;
    void MarkDone() override;
    void EnableNavigation(bool enable) override;

    void EndRun();
    void RefreshDisplays();
    void ShowSpeed(CParameter* parameter, int label);
    void ShowSpeedOf(quint16 feedback);

    CTabPageAuto m_auto{*this};
    CTabPageTachoManual m_manual{*this};
    CParameter* m_reference = nullptr; ///< 2.18
    CParameter* m_emf = nullptr;       ///< 1.02
    CParameter* m_encoder = nullptr;   ///< 1.03
    CParameter* m_tacho = nullptr;     ///< 1.05
    quint16 m_feedback = 0;            ///< whose speed is the third one
    bool m_readsFailed = false; ///< and that was told, once until the page is entered again
    bool m_refreshPosted = false;
};

} // namespace krt550
