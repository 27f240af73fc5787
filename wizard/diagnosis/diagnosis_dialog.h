#pragma once

#include "wizard/platform/dialog.h"

namespace krt550 {

/// "Diagnosis": the fault record of the last fetch as rows of label, value and unit.
class CDiagnosisDialog : public CDialog {
public:
    CDiagnosisDialog();

protected:
    bool OnInitDialog() override;
};

} // namespace krt550
