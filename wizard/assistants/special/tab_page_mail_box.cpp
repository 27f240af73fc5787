#include "wizard/assistants/special/tab_page_mail_box.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/platform/resources.h"
#include "wizard/resources/page_rows.h"
#include "wizard/texts/wizard_text_store.h"

#include <array>

namespace krt550 {
namespace {

constexpr int kTransmitValue = 335;
constexpr int kReceiveValue = 343;

constexpr std::size_t kWordCount = 4;
/// ID, cycle time and the four words of a mailbox follow each other.
constexpr quint16 kFirstId = 9412;
constexpr int kRegistersPerBox = 6;
constexpr int kFirstWord = 2;

constexpr quint16 IdRegister(int number) {
    return static_cast<quint16>(kFirstId + (number - 1) * kRegistersPerBox);
}

constexpr std::array<quint16, kWordCount> WordRegisters(int number) {
    std::array<quint16, kWordCount> registers{};
    for (int reg = IdRegister(number) + kFirstWord; quint16 & word : registers)
        word = static_cast<quint16>(reg++);
    return registers;
}

IndexList WordsOf(bool receives) {
    CWizardTextStore& texts = CWizardTextStore::Instance();
    return receives ? texts.GetMailBoxReceiveList() : texts.GetMailBoxTransmitList();
}

} // namespace

CTabPageMailBox::CTabPageMailBox(int number)
    : CRowTabPage(kMailBoxRows), m_number(number), m_idRegister(IdRegister(number)),
      m_words(*this, WordRegisters(number)) {
    GetRows()[0].SetRegister(m_idRegister);
}

void CTabPageMailBox::AddReads(std::vector<quint16>& registers) {
    CRowTabPage::AddReads(registers);
    m_words.AddReads(registers);
}

void CTabPageMailBox::AddUpdate(UpdatePlan& plan) {
    CRowTabPage::AddUpdate(plan); // first: it may bring other pointers
    m_words.AddUpdate(plan);
}

bool CTabPageMailBox::BindRows(CParameterGroup* root, QString& errors) {
    m_words.ShowView(m_words.IsBasicView());
    m_words.AttachToolTips([this](int label, const QString& text) { AddToolTip(label, text); });
    GetRows()[0].SetRegister(m_idRegister); // now that its controls are there
    const bool bound = GetRows().Bind(root, errors);
    NameWords(Receives());
    return m_words.Bind(root, WordsOf(Receives()), errors) && bound;
}

bool CTabPageMailBox::WriteRows() {
    bool written = GetRows().Write();
    const bool receives = written && Receives();
    written = m_words.Write() && written;
    // Another tab is loaded when it comes to the front; until then its controls are not the ones to be refreshed.
    if (!isVisible())
        return written;
    NameWords(receives);
    QString errors;
    return m_words.BindUnchanged(GetParameterRoot(), WordsOf(receives), errors) && written;
}

bool CTabPageMailBox::Receives() const {
    const CParameter* id = GetRows().GetParameter(0);
    return id && static_cast<qint16>(id->GetActualValue()) < 0;
}

void CTabPageMailBox::NameWords(bool receives) {
    const QString value = LoadText(receives ? kReceiveValue : kTransmitValue);
    for (int word = 0; const quint16 reg : WordRegisters(m_number)) {
        m_words.SetCaption(static_cast<std::size_t>(word),
                           QStringLiteral("%1 %2 %3.%4").arg(reg).arg(value).arg(m_number).arg(word + 1));
        ++word;
    }
}

} // namespace krt550
