// The speed feedback test and the fine tuning of a tacho. The order of drive calls is what keeps people safe: the tests
// assert all of it.
#include "wizard/assistants/basic/speed_feedback_owner.h"
#include "wizard/assistants/basic/tab_page_auto.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/motor/make_safe.h"
#include "wizard/motor/motor_run.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"

#include <QComboBox>
#include <QScopeGuard>

namespace krt550 {
namespace {

constexpr quint16 kTestMode = 5;
constexpr quint16 kTachoMode = 14;
constexpr int kTachoSettleMs = 1000;
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

Ending CTabPageAuto::RunTest(CMotorRun& run) {
    if (!m_serviceMode)
        return Ending::Failed;
    m_page.EnableNavigation(false);
    const auto enableAgain = qScopeGuard([this] { m_page.EnableNavigation(true); });
    if (!AskPermission(run))
        return Ending::Aborted;
    if (!run.Start(kTestMode, kSettleMs)) {
        run.MakeSafe(ServiceModeEnd::First);
        return FailedOrAborted(run);
    }
    m_phase = Phase::Testing;
    m_page.OnRunBegun();
    const Follow follow = FollowProgress(run, [](int progress) { return progress > kFound; });
    // Whoever did not want it any more has gone the way out already.
    return follow == Follow::NotWanted ? Ending::Aborted : JudgeTest(run, follow);
}

template <class IsOver> CTabPageAuto::Follow CTabPageAuto::FollowProgress(CMotorRun& run, const IsOver& isOver) {
    for (int cycle = 0;; ++cycle) {
        if (!m_page.ShowSpeeds(run, GetFeedback()) || !run.Look())
            return Follow::NotWanted;
        if (cycle > kCycles)
            return Follow::TimedOut;
        if (!run.Read(m_progress))
            return run.IsWanted() ? Follow::NoAnswer : Follow::NotWanted;
        const int progress = m_progress->GetValue();
        ShowProgress(progress);
        if (!run.PassCycle(kCycleMs))
            return Follow::NotWanted;
        if (isOver(progress))
            return Follow::Reached;
    }
}

void CTabPageAuto::StopFailedRun(CMotorRun& run, Follow follow) {
    run.MakeSafe(ServiceModeEnd::First);
    if (follow != Follow::TimedOut || !run.IsWanted())
        return;
    QString text = LoadText(kTimedOut);
    ShowMessageBox(text.replace(QLatin1String("REPLACE"), QString::number(m_progress->GetValue())), MessageIcon::None);
}

/// The drive has adapted 50.03 and left its opinion in 9.11.
Ending CTabPageAuto::JudgeTest(CMotorRun& run, Follow follow) {
    const bool good = follow == Follow::Reached;
    if (!good)
        StopFailedRun(run, follow);
    CParameter* feedback = GetRows().GetParameter(kFeedbackRow);
    const bool feedbackRead = run.Read(feedback);
    const bool diagnosisRead = run.Read(m_diagnosis);
    if (!feedbackRead || !diagnosisRead || m_diagnosis->GetValue() != 0) {
        run.MakeSafe(ServiceModeEnd::IfLeft);
        return FailedOrAborted(run);
    }
    SelectChoice(qobject_cast<QComboBox*>(GetRows().GetValueControl(kFeedbackRow)), FormatValueText(feedback));
    const quint16 found = feedback->GetValue();
    if (found == kTacho)
        return OfferFineTuning(run, good);
    return ShowFeedbackFound(run, found == kEncoder ? kEncoderFound : kEmfFound, good);
}

Ending CTabPageAuto::ShowFeedbackFound(CMotorRun& run, int text, bool good) {
    run.MakeSafe(ServiceModeEnd::IfLeft);
    if (run.IsWanted())
        ShowMessageBox(LoadText(kAdaptedTo) + LoadText(text), MessageIcon::Exclamation);
    if (!run.IsWanted())
        return Ending::Aborted;
    EnableRowsFor(text == kEncoderFound ? kEncoder : kEmf);
    if (text == kEncoderFound)
        good = GetRows().Reread(kPulsesRow, 1) && good;
    return CloseTest(good);
}

Ending CTabPageAuto::OfferFineTuning(CMotorRun& run, bool good) {
    EnableRowsFor(kTacho);
    run.MakeSafe(ServiceModeEnd::IfLeft, true); // local control stays for the fine tuning
    m_phase = Phase::Asking;
    const bool wanted = run.IsWanted() && Ask(LoadText(kAdaptedTo) + LoadText(kTachoFound) + LoadText(kOfferTuning)) &&
                        run.IsWanted() && Ask(LoadText(kInstructions));
    if (wanted && run.IsWanted())
        return RunFineTuning(run, good);
    run.MakeSafe(ServiceModeEnd::Over);
    return run.IsWanted() ? CloseTest(good) : Ending::Aborted;
}

Ending CTabPageAuto::RunFineTuning(CMotorRun& run, bool good) {
    EnableControl(GetRows().GetValueControl(kFeedbackRow), false);
    if (!run.Start(kTachoMode, kTachoSettleMs)) {
        run.MakeSafe(ServiceModeEnd::First);
        return FailedOrAborted(run);
    }
    m_phase = Phase::Tuning;
    run.TellAtOnce([this](const QString& text) { m_page.ShowNotice(text); });
    ShowStartAs(kFinishCaption);
    const auto startAgain = qScopeGuard([this] { ShowStartAs(kStartCaption); });
    EnableControl(GetDlgItem(kIdAutotuningStart), true);
    m_page.EnableNavigation(true);
    const Follow follow =
        FollowProgress(run, [this](int progress) { return m_phase != Phase::Tuning || progress > kTuned; });
    if (follow == Follow::NotWanted)
        return Ending::Aborted;
    if (follow == Follow::Reached || m_phase != Phase::Tuning) {
        FinishFineTuning(); // the drive has ended it itself, unless somebody did
        if (!run.IsWanted())
            return Ending::Aborted;
        return good ? Ending::Succeeded : Ending::Failed;
    }
    StopFailedRun(run, follow);
    return FailedOrAborted(run);
}

Ending CTabPageAuto::CloseTest(bool good) {
    m_page.MarkDone();
    ShowProgress(100);
    return good ? Ending::Succeeded : Ending::Failed;
}

void CTabPageAuto::FinishFineTuning() {
    if (m_phase != Phase::Tuning || !m_run)
        return;
    m_phase = Phase::Finishing;
    m_run->MakeSafe(ServiceModeEnd::IfLeft);
    // Cancel may have come while the motor was running down: it has the last word.
    if (!m_run->IsWanted())
        return;
    m_page.ShowNotice({});
    ShowProgress(100);
    ShowMessageBox(LoadText(kTuningFinished), MessageIcon::Exclamation);
    ShowStartAs(kStartCaption);
    m_page.MarkDone();
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
