#pragma once

#include "wizard/shell/wizard_tab_page.h"
#include "wizard/wiring/pointer_rows.h"

namespace krt550 {

/// One mailbox of the drive-to-drive link: its ID, whose sign is the direction, and the parameters that its four words
/// are tied to. A negative ID means that the drive receives it, any other one that it transmits it.
class CTabPageMailBox : public CRowTabPage {
public:
    /// `number` 1 to 4.
    explicit CTabPageMailBox(int number);

    void AddReads(std::vector<quint16>& registers) override;
    void AddUpdate(UpdatePlan& plan) override;

protected:
    bool BindRows(CParameterGroup* root, QString& errors) override;
    /// The ID first. When the tab is in front, its rows show the direction that the drive has now.
    bool WriteRows() override;

private:
    /// By what the drive has.
    bool Receives() const;
    void NameWords(bool receives);

    int m_number;
    quint16 m_idRegister;
    CPointerRows m_words;
};

} // namespace krt550
