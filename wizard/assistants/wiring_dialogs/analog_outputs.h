#pragma once

#include "wizard/assistants/wiring_dialogs/analog_settings.h"
#include "wizard/wiring/index_row.h"

#include <memory>
#include <vector>

namespace krt550 {

/// "AO settings": which signals the analogue outputs AO1 and AO2 carry, their range, filter and scaling.
class CDialogAOSettings : public CDialogAnalogSettings {
public:
    explicit CDialogAOSettings(QWidget* owner = nullptr);

protected:
    bool OnInitDialog() override;
    bool Bind(QString& errors) override;
    bool Write() override;
    Steps ActualValues() override;
    void Applied(bool written) override;
    void Empty() override;
    bool HasActualValues() const override;
    void TellNoActualValues() override;
    void Unmark() override;

private:
    struct Output {
        std::unique_ptr<CIndexRow> index;
        bool basicView = true;
    };

    void ShowView(int output, bool basic);

    std::vector<Output> m_outputs;
};

} // namespace krt550
