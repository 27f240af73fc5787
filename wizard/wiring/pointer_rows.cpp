#include "wizard/wiring/pointer_rows.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/pointer_ids.h"
#include "wizard/platform/window.h"
#include "wizard/texts/wizard_text_store.h"

#include <QWidget>

namespace krt550 {
namespace {


QString UploadFailed() {
    return QStringLiteral("Error while uploading transmit/receive pointed parameter");
}

} // namespace

CPointerRows::Row::Row(CWindow& window, int n, quint16 reg)
    : number(n), index(window, reg,
                       {.label = PointerId(n, kPointerLabel),
                        .choice = PointerId(n, kPointerChoice),
                        .index = PointerId(n, kPointerIndex),
                        .value = PointerId(n, kPointerValue),
                        .unit = PointerId(n, kPointerUnit)},
                       kTransmitReceiveTexts),
      pointed(window, PointerId(n, kPointerValue), PointerId(n, kPointerUnit)) {}

CPointerRows::CPointerRows(CWindow& window, std::span<const quint16> registers) : m_window(window) {
    for (int number = 1; const quint16 reg : registers)
        m_rows.emplace_back(window, number++, reg);
    window.Handle(kIdPointerView, ControlEvent::Clicked, [this] { ShowView(!m_basic); });
}

void CPointerRows::AttachToolTips(const std::function<void(int labelId, const QString& text)>& addToolTip) const {
    for (const Row& row : m_rows)
        addToolTip(PointerId(row.number, kPointerLabel),
                   CWizardTextStore::Instance().GetToolTip(row.index.GetRegister()));
}

bool CPointerRows::Bind(CParameterGroup* root, const IndexList& list, QString& errors) {
    for (Row& row : m_rows)
        row.index.Unmark();
    return BindUnchanged(root, list, errors);
}

bool CPointerRows::BindUnchanged(CParameterGroup* root, const IndexList& list, QString& errors) {
    const FailurePass pass;
    m_root = root;
    bool bound = true;
    for (Row& row : m_rows)
        if (!row.index.IsChanged())
            bound = Bind(row, list, errors) && bound;
    return bound;
}

bool CPointerRows::Bind(Row& row, const IndexList& list, QString& errors) {
    for (const PointerControl control : {kPointerIndex, kPointerChoice})
        if (QWidget* value = m_window.GetDlgItem(PointerId(row.number, control)))
            value->setProperty("register", int{row.index.GetRegister()});
    const bool bound = row.index.Bind(m_root, list, errors);
    if (!row.index.GetParameter())
        SetControlText(m_window.GetDlgItem(PointerId(row.number, kPointerLabel)),
                       QString::number(row.index.GetRegister()));
    if (bound && row.index.GetParameter())
        Resolve(row, UploadFailed());
    else
        row.pointed.Clear();
    return bound;
}

bool CPointerRows::Resolve(Row& row, const QString& failure) {
    return row.pointed.Resolve(m_root, row.index.GetParameter()->GetActualValue(), failure);
}

bool CPointerRows::Write() {
    const FailurePass pass;
    bool written = true;
    for (Row& row : m_rows) {
        if (!row.index.IsChanged())
            continue;
        if (!row.index.Write())
            written = false;
        else if (const CParameter* pointer = row.index.GetParameter())
            Resolve(row, QStringLiteral("Error while uploading pointed parameter (%1)").arg(pointer->GetActualValue()));
    }
    return written;
}

void CPointerRows::AddReads(std::vector<quint16>& registers) const {
    for (const Row& row : m_rows)
        registers.push_back(row.index.GetRegister());
}

void CPointerRows::AddUpdate(UpdatePlan& plan) {
    for (Row& row : m_rows)
        plan.AddStep([this, &row] { return Refresh(row); });
}

bool CPointerRows::Refresh(Row& row) {
    if (!row.index.IsRead() || row.index.IsChanged())
        return true;
    // The update of the rows may have brought another pointer.
    const bool moved = row.index.GetParameter()->GetActualValue() != row.pointed.GetPointer();
    return moved ? Resolve(row, UploadFailed()) : row.pointed.Refresh();
}

void CPointerRows::ShowView(bool basic) {
    m_basic = basic;
    for (Row& row : m_rows)
        row.index.ShowView(basic);
    ShowControl(m_window.GetDlgItem(kIdPointerHeading), !basic);
    SetViewText(m_window.GetDlgItem(kIdPointerView), basic);
}

} // namespace krt550
