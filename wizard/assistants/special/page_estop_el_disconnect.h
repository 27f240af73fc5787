#pragma once

#include "wizard/shell/row_page.h"

#include <memory>

namespace krt550 {

/// How the drive stops after an E-stop and which inputs tell it to, with the delays that the relays should have.
class CPageEStopElDisconnect : public CRowPage {
public:
    CPageEStopElDisconnect();
    ~CPageEStopElDisconnect() override;

    bool ApplyParameters() override;
    bool LoadParameters() override;

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    /// What the drive lacks is disabled; nothing is said of it.
    void ReportLoadErrors(const QString&) override {}
    bool StartsUpdate(bool bound, const QString& errors) const override;
    bool RefreshValues() override;

private:
    bool ShowRampTimeAsDelay(CParameterGroup* root);
    void UpdateRelayHints();

    /// Holds a copy of the ramp time 22.04: what the drive has, also while another value is typed into the row.
    std::unique_ptr<CParameterGroup> m_copyGroup;
    CParameter* m_copy = nullptr;
};

} // namespace krt550
