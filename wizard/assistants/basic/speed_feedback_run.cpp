// The speed feedback test and the fine tuning of a tacho. The order of drive calls is what keeps people safe: the tests
// assert all of it.
#include "wizard/assistants/basic/page_speed_feedback.h"
#include "wizard/assistants/basic/tab_page_auto.h"

#include "hostlib/host_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/drive_commands.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"

#include <QComboBox>
#include <QScopeGuard>
#include <QScopedValueRollback>

namespace krt550 {
namespace {

constexpr quint16 kTestMode = 5;
constexpr quint16 kTachoMode = 14;
constexpr int kCycleMs = 50;
constexpr int kTachoSettleMs = 1000;
/// The drive gets one cycle more than this.
constexpr int kCycles = 5000;
/// Progress [%] above which the drive has found its feedback, and above which it has ended the fine tuning itself.
constexpr int kFound = 80;
constexpr int kTuned = 100;

enum : quint16 { kEmf = 0, kEncoder = 1, kTacho = 2 };

// Rows of the tab.
constexpr std::size_t kFeedbackRow = 0;
constexpr std::size_t kVoltageRow = 3;
constexpr std::size_t kBaseSpeedRow = 4;
constexpr std::size_t kPulsesRow = 5;
constexpr std::size_t kEvaluationRow = 6;
constexpr std::size_t kTachoVoltageRow = 7;
constexpr std::size_t kHandTachoRow = 8;

// Strings.
constexpr int kStartCaption = 20;
constexpr int kFinishCaption = 43;
constexpr int kTuningFinished = 59;
constexpr int kTachoFound = 230;
constexpr int kEncoderFound = 232;
constexpr int kEmfFound = 233;
constexpr int kAdaptedTo = 234;
constexpr int kOfferTuning = 235;
constexpr int kTimedOut = 371;
constexpr int kInstructions = 372;

bool Ask(const QString& text) {
    return ShowMessageBox(text, MessageIcon::Exclamation, MessageButtons::OkCancel);
}

} // namespace

bool CTabPageAuto::RunTest(bool& aborted) {
    m_timedOut = false;
    m_reads.Clear();
    CHostDrive* drive = m_page.GetHostDrive();
    if (!drive || !m_serviceMode)
        return false;
    m_page.EnableNavigation(false);
    const auto enableAgain = qScopeGuard([this] {
        m_page.EnableNavigation(true);
        if (!m_fineTuning)
            m_testing = false;
    });
    if (!IsStartPermitted(*drive)) {
        ShowStartDenied();
        aborted = true;
        return true;
    }
    if (!StartInServiceMode(*drive, *m_serviceMode, kTestMode))
        return false;
    m_testing = true;
    StartTimer();
    m_page.PostRefreshDisplays(GetFeedback());
    const bool result = FindFeedback(aborted);
    // After Cancel nothing is left to stop: it has stopped the motor itself, and nobody wants to hear of the rest.
    aborted = aborted || m_abort;
    return aborted || result;
}

bool CTabPageAuto::FindFeedback(bool& aborted) {
    const Ending ending = FollowProgress([](int progress) { return progress > kFound; });
    if (ending == Ending::Aborted) {
        aborted = true;
        return true;
    }
    if (m_progress)
        ShowProgress(m_progress->GetValue());
    return JudgeTest(ending == Ending::Reached, aborted);
}

template <class IsOver> CTabPageAuto::Ending CTabPageAuto::FollowProgress(const IsOver& isOver) {
    for (int cyclesLeft = kCycles;; --cyclesLeft) {
        PumpMessages(this);
        if (m_abort)
            return Ending::Aborted;
        if (cyclesLeft < 0) {
            m_timedOut = true;
            return Ending::Failed;
        }
        if (!m_reads.Read(m_progress))
            return Ending::Failed;
        const int progress = m_progress->GetValue();
        ShowProgress(progress);
        CClock::Current().Sleep(kCycleMs);
        m_page.PostRefreshDisplays(GetFeedback());
        if (isOver(progress))
            return Ending::Reached;
    }
}

/// The drive has adapted 50.03 and left its opinion in 9.11.
bool CTabPageAuto::JudgeTest(bool result, bool& aborted) {
    CParameter* feedback = GetRows().GetParameter(kFeedbackRow);
    const bool feedbackRead = m_reads.Read(feedback);
    const bool diagnosisRead = m_reads.Read(m_diagnosis);
    if (!feedbackRead || !diagnosisRead || m_diagnosis->GetValue() != 0) {
        StopAndRelease();
        aborted = m_abort;
        ShowTroubles();
        return false;
    }
    SelectChoice(qobject_cast<QComboBox*>(GetRows().GetValueControl(kFeedbackRow)), FormatValueText(feedback));
    const quint16 found = feedback->GetValue();
    if (found == kTacho)
        return OfferFineTuning(result, aborted);
    return ShowFeedbackFound(found == kEncoder ? kEncoderFound : kEmfFound, result, aborted);
}

bool CTabPageAuto::ShowFeedbackFound(int text, bool result, bool& aborted) {
    StopAndRelease();
    ShowTroubles();
    if (!m_abort)
        ShowMessageBox(LoadText(kAdaptedTo) + LoadText(text), MessageIcon::Exclamation);
    aborted = m_abort;
    if (aborted)
        return true;
    EnableRowsFor(text == kEncoderFound ? kEncoder : kEmf);
    if (text == kEncoderFound)
        result = GetRows().Reread(kPulsesRow, 1) && result;
    return CloseTest(result);
}

bool CTabPageAuto::OfferFineTuning(bool result, bool& aborted) {
    EnableRowsFor(kTacho);
    StopDrive(); // local control stays for the fine tuning
    ShowTroubles();
    const bool wanted =
        !m_abort && Ask(LoadText(kAdaptedTo) + LoadText(kTachoFound) + LoadText(kOfferTuning)) && !m_abort;
    if (wanted)
        m_fineTuning = Ask(LoadText(kInstructions)) && !m_abort;
    if (m_fineTuning)
        result = RunFineTuning(result, aborted);
    aborted = aborted || m_abort;
    return aborted || CloseTest(result);
}

/// False when the drive refused the tacho's service mode: the motor does not start without it.
bool CTabPageAuto::StartFineTuning() {
    m_serviceMode->SetValue(kTachoMode, false);
    EnableControl(GetRows().GetValueControl(kFeedbackRow), false);
    if (!WriteParameter(m_serviceMode))
        return false;
    CClock::Current().Sleep(kTachoSettleMs);
    CloseContactorAndStart(m_page.GetHostDrive());
    return true;
}

bool CTabPageAuto::RunFineTuning(bool result, bool& aborted) {
    if (!StartFineTuning()) {
        m_fineTuning = false;
        return false;
    }
    ShowStartAs(kFinishCaption);
    EnableControl(GetDlgItem(kIdAutotuningStart), true);
    m_page.EnableNavigation(true);
    const Ending ending = FollowProgress([this](int progress) { return !m_fineTuning || progress > kTuned; });
    aborted = ending == Ending::Aborted;
    if (!aborted)
        ShowTroubles();
    return result && ending == Ending::Reached;
}

/// Fine tuning that is still on is closed by whoever finishes it.
bool CTabPageAuto::CloseTest(bool result) {
    if (!m_fineTuning) {
        if (GetFeedback() == kTacho)
            GiveBackLocalControl(*m_page.GetHostDrive());
        m_page.MarkDone();
    }
    ShowProgress(100);
    return result;
}

void CTabPageAuto::FinishFineTuning() {
    if (!m_fineTuning || m_finishing)
        return;
    const QScopedValueRollback<bool> finishing(m_finishing, true);
    StopAndRelease();
    // Cancel may have come while the motor was running down: it has the last word.
    if (m_fineTuning) {
        ShowProgress(100);
        ShowMessageBox(LoadText(kTuningFinished), MessageIcon::Exclamation);
        m_page.MarkDone();
    }
    ShowStartAs(kStartCaption);
    m_fineTuning = false;
    m_testing = false;
}

void CTabPageAuto::StopDrive() {
    CHostDrive* drive = m_page.GetHostDrive();
    StopAndOpenContactor(drive);
    WaitForStatusBit(drive, this);
}

void CTabPageAuto::StopAndRelease() {
    StopDrive();
    if (CHostDrive* drive = m_page.GetHostDrive())
        GiveBackLocalControl(*drive);
}

/// What went wrong on the way, now that nobody has to look after a turning motor.
void CTabPageAuto::ShowTroubles() {
    if (m_abort)
        return;
    if (std::exchange(m_timedOut, false)) {
        QString text = LoadText(kTimedOut);
        text.replace(QLatin1String("REPLACE"), QString::number(m_progress->GetValue()));
        ShowMessageBox(text, MessageIcon::None);
    }
    m_reads.ShowFailures();
    m_page.ShowReadFailures();
}

void CTabPageAuto::EnableRowsFor(quint16 feedback) {
    const struct {
        std::size_t row;
        bool enable;
        bool touched;
    } rows[] = {
        {kFeedbackRow, false, feedback != kEncoder},  {kVoltageRow, feedback == kEmf, true},
        {kBaseSpeedRow, feedback == kEmf, true},      {kPulsesRow, feedback == kEncoder, true},
        {kEvaluationRow, feedback == kEncoder, true}, {kTachoVoltageRow, feedback == kTacho, true},
        {kHandTachoRow, feedback == kTacho, true},
    };
    for (const auto& row : rows)
        if (row.touched)
            EnableControl(GetRows().GetValueControl(row.row), row.enable);
}

void CTabPageAuto::ShowStartAs(int text) {
    SetControlTextFromString(GetDlgItem(kIdAutotuningStart), text);
}

} // namespace krt550
