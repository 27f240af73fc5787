#include "wizard/wiring/pointed_parameter.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/message_box.h"
#include "wizard/platform/window.h"

namespace krt550 {

CPointedParameter::CPointedParameter(CWindow& window, int valueId, int unitId)
    : m_window(window), m_valueId(valueId), m_unitId(unitId) {}

bool CPointedParameter::Resolve(CParameterGroup* root, quint16 pointer, const QString& failure) {
    m_pointer = pointer;
    m_parameter = pointer != 0 ? FindInTree(root, pointer) : nullptr;
    const bool read = !m_parameter || ReadParameter(m_parameter);
    Show(read);
    if (!read)
        ShowMessageBox(failure, MessageIcon::Stop);
    return read;
}

void CPointedParameter::Clear() {
    m_pointer = 0;
    m_parameter = nullptr;
    Show(true);
}

bool CPointedParameter::Refresh() {
    if (m_parameter && !ReadParameter(m_parameter))
        return false;
    Show(true);
    return true;
}

void CPointedParameter::Show(bool read) {
    const bool available = m_parameter && read;
    const QString without = m_pointer != 0 ? QStringLiteral("N/A") : QString();
    SetControlText(m_window.GetDlgItem(m_valueId), available ? FormatValueText(m_parameter) : without);
    SetControlText(m_window.GetDlgItem(m_unitId), available ? m_parameter->GetUnit() : without);
}

} // namespace krt550
