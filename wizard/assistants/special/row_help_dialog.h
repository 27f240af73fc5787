#pragma once

#include "wizard/platform/dialog.h"

namespace krt550 {

/// A small window with the help text of one row, at the button that asked for it.
class CRowHelpDialog : public CDialog {
public:
    /// `button` is visible and outlives the dialog.
    CRowHelpDialog(QString text, const QWidget& button);

protected:
    bool OnInitDialog() override;

private:
    QString m_text;
};

} // namespace krt550
