#include "wizard/assistants/special/row_help_dialog.h"

#include "wizard/platform/control_text.h"
#include "wizard/resources/control_ids.h"

#include <QPlainTextEdit>

namespace krt550 {

CRowHelpDialog::CRowHelpDialog(QString text, const QWidget& button) : CDialog(10000), m_text(std::move(text)) {
    OpenAt(button, Place::Over);
}

bool CRowHelpDialog::OnInitDialog() {
    auto* help = GetControl<QPlainTextEdit>(kIdHelpText);
    help->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    SetControlText(help, m_text);
    help->moveCursor(QTextCursor::Start);
    return true;
}

} // namespace krt550
