#include "wizard/platform/tool_tip.h"

#include <QLabel>
#include <QTextDocument>

namespace krt550 {

void SetToolTip(QWidget* control, const QString& text) {
    if (!control)
        return;
    control->setToolTip(text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal));
    // Without a description a screen reader gets the tip, markup and all.
    control->setAccessibleDescription(text);
    if (const auto* label = qobject_cast<QLabel*>(control); label && label->buddy())
        label->buddy()->setAccessibleDescription(text);
}

} // namespace krt550
