#pragma once

#include "wizard/platform/dialog.h"
#include "wizard/resources/digital_terminals.h"
#include "wizard/wiring/pending_connections.h"
#include "wizard/wiring/source_row.h"

#include <array>
#include <memory>

namespace krt550 {

/// "DI and DO settings": what the digital inputs feed, what the digital outputs carry, which of them are inverted, and
/// the state of every terminal. Apply and Close write, Cancel does not.
class CDialogDIDOSettings : public CDialog {
public:
    CDialogDIDOSettings();

    /// The drive's parameters; not null, to be given before DoModal (kIdCloseDialog after Close).
    void SetParameterRoot(CParameterGroup* root) { m_root = root; }

protected:
    bool OnInitDialog() override;
    void OnTimer(int id) override;
    void OnDestroy() override;
    QWidget* CreateControl(const ControlLayout& control) override;

private:
    /// A status parameter, one bit for each terminal.
    struct States {
        CParameter* parameter = nullptr;
        bool read = false;
    };

    static bool ReadStates(States& states);
    void ShowView();
    void Load();
    void LoadInputs();
    void LoadOutputs(QString& errors);
    void Write();
    void WriteInversion(int number);
    void EditConnections(int number);
    void InversionClicked(int number);
    void ShowConnections();
    void ShowStates();
    void Refresh();
    void ToggleView();
    void Forget() const;

    CParameterGroup* m_root = nullptr;
    bool m_basic = true;
    CSelectorList m_selectors{InputKind::Digital};
    CPendingConnections m_picked{InputKind::Digital};
    std::array<CParameter*, kDigitalTerminals> m_inversions{}; ///< null: missing or not read
    std::vector<std::unique_ptr<CSourceRow>> m_outputs;
    States m_inputStates;
    States m_outputStates;
    int m_timer = 0;
};

} // namespace krt550
