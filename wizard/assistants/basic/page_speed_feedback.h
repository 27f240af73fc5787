#pragma once

#include "wizard/assistants/basic/tab_page_auto.h"
#include "wizard/assistants/basic/tab_page_tacho_manual.h"
#include "wizard/shell/row_page.h"

namespace krt550 {

/// Step 5: which speed feedback is there, and the fine tuning of a tacho. Two tabs, and below them the speeds.
class CPageSpeedFeedback : public CRowPage {
    Q_OBJECT

public:
    CPageSpeedFeedback();

    bool CancelPage() override;
    bool LeavePage() override;

    // For the tabs.
    CHostDrive* GetHostDrive() const { return GetDrive(); }
    /// Has the speeds read and shown as soon as the message queue is drained; asked for again before that, once. The
    /// third one is that of `feedback`, a value of 50.03.
    void PostRefreshDisplays(quint16 feedback);
    /// Tells which of the speeds could not be read, each once until the page is entered again: not for a run, which calls
    /// it when the motor stands.
    void ShowReadFailures();
    /// Step 5 is done.
    void MarkDone();
    /// Back and Next, while the drive looks for its feedback.
    void EnableNavigation(bool enable);

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    bool WriteRows() override;
    /// The tabs refresh themselves.
    void UpdateValues() override {}

    void OnButtonNext() override;
    void OnButtonBack() override;
    void OnButtonCancel() override;
    void OnDestroy() override;

private:
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
    CQuietReads m_reads;
    bool m_readsFailed = false; ///< and has been told
    bool m_refreshPosted = false;
    bool m_cancelling = false;
};

} // namespace krt550
