#pragma once

#include "wizard/assistants/wiring_dialogs/analog_settings.h"
#include "wizard/wiring/connection_picker.h"

#include <array>

namespace krt550 {

/// "AI settings": what the analogue inputs AI1 to AI4 are connected to, their range, scaling and filter.
class CDialogAISettings : public CDialogAnalogSettings {
    Q_OBJECT

public:
    explicit CDialogAISettings(QWidget* owner = nullptr);

protected:
    bool Bind(QString& errors) override;
    bool Write() override;
    Steps ActualValues() override;
    void Applied(bool written) override;
    void Empty() override;
    bool HasActualValues() const override;

private:
    /// One input: what it is connected to in the drive, and what was picked and not yet applied.
    struct Input {
        InputUse use;
        ConnectionChange change;
    };

    void PickConnections(int input);
    void TakeOver(int input, const ConnectionChange& change);
    void ShowConnections();
    void ShowConvertedValues();
    bool ShowConvertedValue(int input);
    void ShowWaiting(int input);
    void ShowTexts(int input, const QString& converted, const QString& unit);

    Input& At(int input) { return m_inputs[static_cast<std::size_t>(input - 1)]; }

    std::array<Input, 4> m_inputs;
};

} // namespace krt550
