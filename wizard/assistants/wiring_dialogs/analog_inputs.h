#pragma once

#include "wizard/assistants/wiring_dialogs/analog_settings.h"
#include "wizard/wiring/pending_connections.h"

#include <array>

namespace krt550 {

/// "AI settings": what the analogue inputs AI1 to AI4 are connected to, their range, scaling and filter.
class CDialogAISettings : public CDialogAnalogSettings {
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
    void PickConnections(int input);
    void ShowConnections();
    void ShowConvertedValues();
    bool ShowConvertedValue(int input);
    void ShowWaiting(int input);
    void ShowTexts(int input, const QString& converted, const QString& unit);

    /// What an input is connected to in the drive.
    InputUse& UseOf(int input) { return m_uses[static_cast<std::size_t>(input - 1)]; }

    std::array<InputUse, 4> m_uses;
    CPendingConnections m_picked{InputKind::Analogue};
};

} // namespace krt550
