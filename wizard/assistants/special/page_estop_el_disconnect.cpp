#include "wizard/assistants/special/page_estop_el_disconnect.h"

#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/platform/control_text.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/sheet_wizard.h"

namespace krt550 {
namespace {

constexpr quint16 kStopMode = 2104;
constexpr quint16 kDisconnectSelector = 1008;
constexpr quint16 kEStopSelector = 1009;
constexpr quint16 kRampTime = 2204;

/// Stop mode that goes by the ramp time; selector without an input.
constexpr quint16 kRamp = 0;
constexpr quint16 kNotConnected = 0;

/// Time in which the drive brings the armature current to zero and blocks its pulses, with some reserve [ms].
constexpr const char* kDisconnectDelay = "200";

} // namespace

CPageEStopElDisconnect::CPageEStopElDisconnect() : CRowPage(kEStopRows, QStringLiteral("10.htm")) {}

CPageEStopElDisconnect::~CPageEStopElDisconnect() = default;

bool CPageEStopElDisconnect::LoadParameters() {
    const bool bound = CRowPage::LoadParameters();
    UpdateRelayHints();
    return bound;
}

bool CPageEStopElDisconnect::BindRows(CParameterGroup* root, QString& errors) {
    const bool bound = CRowPage::BindRows(root, errors);
    const CParameter* rampTime = GetRows().Find(kRampTime)->GetParameter();
    if (rampTime && !m_copy) {
        m_copyGroup = std::make_unique<CParameterGroup>(nullptr, QStringLiteral("CopyGroup"), QStringLiteral("1000"));
        auto copy = std::make_unique<CParameter>(m_copyGroup.get(), rampTime->GetDescription(), rampTime->GetLink());
        m_copy = copy.get();
        m_copyGroup->Add(std::move(copy));
    }
    return ShowRampTimeAsDelay(root) && bound;
}

bool CPageEStopElDisconnect::ShowRampTimeAsDelay(CParameterGroup* root) {
    QString errors;
    return !m_copy || BindDisplayRow(root, m_copy, kRampTime, nullptr, GetDlgItem(kIdEStopDelay), errors,
                                     GetDlgItem(kIdEStopDelayUnit));
}

bool CPageEStopElDisconnect::StartsUpdate(bool, const QString&) const {
    return m_copy != nullptr;
}

bool CPageEStopElDisconnect::RefreshValues() {
    const bool shown = !GetControlText(GetRows().Find(kRampTime)->GetValueControl()).isEmpty();
    return !m_copy || !shown || ShowParameterValue(m_copy, GetDlgItem(kIdEStopDelay));
}

bool CPageEStopElDisconnect::ApplyParameters() {
    const bool written = WriteRows();
    CRow& rampTime = *GetRows().Find(kRampTime);
    // A value that was refused stays, to be corrected.
    if (CParameterGroup* root = GetPageParameterRoot(GetSheet()); root && !rampTime.IsChanged()) {
        QString errors;
        rampTime.Bind(root, errors);
        ShowRampTimeAsDelay(root);
    }
    UpdateRelayHints();
    return written;
}

void CPageEStopElDisconnect::UpdateRelayHints() {
    const CParameter* stopMode = GetRows().Find(kStopMode)->GetParameter();
    const CParameter* disconnect = GetRows().Find(kDisconnectSelector)->GetParameter();
    CRow& rampTime = *GetRows().Find(kRampTime);
    if (!stopMode || !GetRows().Find(kEStopSelector)->GetParameter()) {
        EnableControl(rampTime.GetValueControl(), false);
        return;
    }
    const bool ramps = stopMode->GetValue() == kRamp;
    if (!ramps) {
        rampTime.Clear();
        SetControlText(GetDlgItem(kIdEStopDelay), QString());
        SetControlText(GetDlgItem(kIdEStopDelayUnit), QString());
    }
    const bool shown = ramps && disconnect && disconnect->GetValue() != kNotConnected;
    SetControlText(GetDlgItem(kIdDisconnectDelay), shown ? QString::fromLatin1(kDisconnectDelay) : QString());
    SetControlText(GetDlgItem(kIdDisconnectDelayUnit), shown ? QStringLiteral("ms") : QString());
}

} // namespace krt550
