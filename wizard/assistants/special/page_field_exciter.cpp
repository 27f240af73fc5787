#include "wizard/assistants/special/page_field_exciter.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/start_condition.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/dialog_layout.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/page_rows.h"
#include "wizard/shell/color_static.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/texts/wizard_text_store.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr quint16 kDetectedType = 406;
constexpr quint16 kUsedType = 9912;
constexpr quint16 kNodeId = 9408;
constexpr int kOkText = 314;
constexpr int kFaultText = 320;

} // namespace

CPageFieldExciter::CPageFieldExciter() : CRowPage(kFieldExciterRows, QStringLiteral("12.htm")) {}

QWidget* CPageFieldExciter::CreateControl(const ControlLayout& control) {
    if (control.id == kIdLinkStatus) {
        m_status = new CColorStatic(this);
        m_status->setAlignment(Qt::AlignCenter);
        return m_status;
    }
    if (control.id == kIdAttention)
        return m_attention = new CColorStatic(this);
    return CRowPage::CreateControl(control);
}

bool CPageFieldExciter::LoadParameters() {
    const bool bound = CRowPage::LoadParameters();
    m_attention->SetBoldFont();
    m_attention->SetLook(StaticLook::Neutral);
    UpdateCommunicationStatus();
    return bound;
}

bool CPageFieldExciter::BindRows(CParameterGroup* root, QString& errors) {
    const bool bound = CRowPage::BindRows(root, errors);
    m_nodes = {FindParameter(root, 418), FindParameter(root, 419)};
    m_detectedType = FindParameter(root, kDetectedType);
    return (!IsStatusKnown() || ReadNodes()) && bound;
}

bool CPageFieldExciter::IsStatusKnown() const {
    return m_detectedType && std::ranges::find(m_nodes, nullptr) == m_nodes.end();
}

bool CPageFieldExciter::ReadNodes() {
    m_nodesRead = std::ranges::count_if(m_nodes, ReadParameter) == std::ssize(m_nodes);
    return m_nodesRead;
}

/// The status is judged when all that it is made of has been read.
void CPageFieldExciter::AddUpdate(UpdatePlan& plan) {
    CRowPage::AddUpdate(plan);
    for (CParameter* nodes : m_nodes)
        plan.AddStep([this, nodes] { return m_nodesRead = ReadParameter(nodes); });
    plan.AddStep([this] { return ShowParameterValue(m_detectedType, GetDlgItem(kIdExciterType)); });
    plan.AddStep([this] {
        UpdateCommunicationStatus();
        return true;
    });
}

bool CPageFieldExciter::ApplyParameters() {
    const bool written = WriteRows();
    if (IsStatusKnown() && ReadNodes() && ShowParameterValue(m_detectedType, GetDlgItem(kIdExciterType)))
        UpdateCommunicationStatus();
    return written;
}

CPageFieldExciter::LinkStatus CPageFieldExciter::JudgeLink() const {
    CParameterGroup* root = GetPageParameterRoot(GetSheet());
    const CParameter* used = GetRows().Find(kUsedType)->GetParameter();
    const CParameter* id = GetRows().Find(kNodeId)->GetParameter();
    if (!root || !IsStatusKnown() || !used || !id || !m_nodesRead ||
        !CWizardTextStore::Instance().EnsureWizardTexts() ||
        !StartConditionHolds(GetStepNumber(), root, MissingRegister::Holds))
        return LinkStatus::Unknown;
    const int node = id->GetValue() - 1;
    if (node < 0 || node >= kNodesAWord * std::ssize(m_nodes))
        return LinkStatus::Unknown;
    const quint16 answering = m_nodes[static_cast<std::size_t>(node / kNodesAWord)]->GetValue();
    const bool answers = answering >> (node % kNodesAWord) & 1;
    const bool sameType = m_detectedType->GetStringValue() == used->GetStringValue();
    return answers && sameType ? LinkStatus::Ok : LinkStatus::Fault;
}

void CPageFieldExciter::UpdateCommunicationStatus() {
    switch (JudgeLink()) {
    case LinkStatus::Ok:
        SetControlText(m_status, LoadText(kOkText));
        return m_status->SetLook(StaticLook::Good);
    case LinkStatus::Fault:
        SetControlText(m_status, LoadText(kFaultText));
        return m_status->SetLook(StaticLook::Bad);
    case LinkStatus::Unknown:
        SetControlText(m_status, QString());
        return m_status->SetLook(StaticLook::Neutral);
    }
}

} // namespace krt550
