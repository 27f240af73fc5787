#pragma once

#include "wizard/shell/wizard_tab_page.h"
#include "wizard/wiring/pointer_rows.h"

namespace krt550 {

enum class DatasetDirection { FromPLC, ToPLC };

/// The words that the drive exchanges with the PLC in one direction, and the parameters that they are tied to.
class CTabPageDataset : public CRowTabPage {
public:
    explicit CTabPageDataset(DatasetDirection direction);

    void AddReads(std::vector<quint16>& registers) override;
    void AddUpdate(UpdatePlan& plan) override;

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    bool WriteRows() override { return m_words.Write(); }

private:
    DatasetDirection m_direction;
    CPointerRows m_words;
};

} // namespace krt550
