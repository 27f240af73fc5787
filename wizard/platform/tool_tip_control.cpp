#include "wizard/platform/tool_tip_control.h"

#include <QTextDocument>
#include <QWidget>

namespace krt550 {

bool CToolTipCtrl::AddTool(QWidget* control, const QString& text) {
    if (!control)
        return false;
    control->setToolTip(text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal));
    return !text.isEmpty();
}

} // namespace krt550
