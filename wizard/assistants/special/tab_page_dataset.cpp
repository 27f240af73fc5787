#include "wizard/assistants/special/tab_page_dataset.h"

#include "wizard/params/cyclic_update.h"
#include "wizard/resources/page_rows.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

constexpr quint16 kFromPLC[] = {9001, 9002, 9003, 9004, 9005, 9006, 9007, 9008, 9009, 9010, 9011, 9012};
constexpr quint16 kToPLC[] = {9201, 9202, 9203, 9204, 9205, 9206, 9207, 9208, 9209, 9210, 9211, 9212};

} // namespace

CTabPageDataset::CTabPageDataset(DatasetDirection direction)
    : CRowTabPage(kDatasetRows), m_direction(direction),
      m_words(*this, direction == DatasetDirection::FromPLC ? kFromPLC : kToPLC) {}

void CTabPageDataset::AddReads(std::vector<quint16>& registers) {
    CRowTabPage::AddReads(registers);
    m_words.AddReads(registers);
}

void CTabPageDataset::AddUpdate(UpdatePlan& plan) {
    CRowTabPage::AddUpdate(plan); // first: it may bring other pointers
    m_words.AddUpdate(plan);
}

bool CTabPageDataset::BindRows(CParameterGroup* root, QString& errors) {
    m_words.ShowView(m_words.IsBasicView());
    m_words.AttachToolTips([this](int label, const QString& text) { AddToolTip(label, text); });
    CWizardTextStore& texts = CWizardTextStore::Instance();
    return m_words.Bind(
        root, m_direction == DatasetDirection::FromPLC ? texts.GetDataSetReceiveList() : texts.GetDataSetTransmitList(),
        errors);
}

} // namespace krt550
