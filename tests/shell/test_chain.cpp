#include "tests/shell/wizard_fixture.h"

#include "wizard/page_factory.h"
#include "wizard/resources/module_resources.h"
#include "wizard/shell/sheet_wizard.h"
#include "wizard/shell/wizard_property_page.h"

namespace krt550 {
namespace {

class Chain : public testing::Test {
protected:
    Chain() {
        InstallPages();
        m_sheet.SetDriveObject(nullptr);
    }
    /// Walks the next-page indexes from the start page: "0 3 5 end".
    QString Walk() const {
        QString walk;
        for (int index = 0, steps = 0; steps < 20; ++steps) {
            walk += QString::number(index) + ' ';
            const CWizardPropertyPage* page = m_sheet.GetWizardPage(index);
            if (page->IsLastPage())
                return walk + "end";
            if (page->GetNextPage() == kNoPage)
                return walk + "none";
            EXPECT_EQ(m_sheet.GetWizardPage(page->GetNextPage())->GetPreviousPage(), index);
            index = page->GetNextPage();
        }
        return walk + "...";
    }
    QString Digits() const {
        QString digits;
        for (int step = 1; step <= kStepCount; ++step)
            digits += QString::number(int(GetStepState(step)));
        return digits;
    }

    CModuleResources m_resources;
    ResourceScope m_scope{m_resources};
    CSheetWizard m_sheet{1, nullptr, 0};
};

TEST_F(Chain, HasSeventeenTitledPagesAndNoLinksAtFirst) {
    EXPECT_EQ(Digits(), "0000000") << "a fresh process";
    const std::pair<int, const char*> pages[] = {{107, "Assistant menu"},
                                                 {100, "1. Name plate data"},
                                                 {101, "2. Macro assistant"},
                                                 {103, "3. Autotuning field current controller"},
                                                 {104, "4. Autotuning armature current controller"},
                                                 {110, "5. Speed feedback assistant"},
                                                 {111, "6. Autotuning speed controller"},
                                                 {112, "7. Field weakening assistant"},
                                                 {134, "I/O assistant"},
                                                 {133, "Protections and limit assistant"},
                                                 {135, "E-stop / el. disconnect assistant"},
                                                 {136, "Field reversal assistant"},
                                                 {137, "Field exciter assistant"},
                                                 {138, "Master-follower / drive to drive assistant"},
                                                 {139, "12-pulse assistant"},
                                                 {146, "Serial communication assistant"},
                                                 {147, "Configurable assistant"}};
    for (int index = 0; index < kPageCount; ++index) {
        const CWizardPropertyPage* page = m_sheet.GetWizardPage(index);
        EXPECT_EQ(page->GetTitle(), QString("[KRT550Wizard] ") + pages[index].second);
        EXPECT_EQ(page->GetLayoutNumber(), pages[index].first);
        EXPECT_EQ(page->GetStepNumber(), kNoPage) << index;
    }
    EXPECT_EQ(Walk(), "0 none");
}

TEST_F(Chain, LinksChosenPagesInTheListsOrder) {
    struct {
        std::vector<quint16> pages;
        QString walk;
        QString digits;
    } const cases[] = {
        {{3, 5, 9}, "0 3 5 9 end", "0020200"},
        {{9, 15}, "0 9 15 end", "0000000"},
        {{16}, "0 16 end", "0000000"},
        {{0, 7, 17, 111}, "0 7 end", "0000002"}, // what is no page links nothing
    };
    for (const auto& c : cases) {
        m_sheet.SetAssistantChain(c.pages);
        EXPECT_EQ(Walk(), c.walk);
        EXPECT_EQ(Digits(), c.digits) << c.walk.toStdString();
    }
    EXPECT_EQ(m_sheet.GetWizardPage(16)->GetStepNumber(), 16);
}

TEST(StepStates, AreKeptForSevenStepsOnly) {
    EnsureStepStates();
    SetStepState(3, StepState::Done);
    for (const int step : {-1, 0, 8, 9, 16, 32, 111}) {
        SetStepState(step, StepState::Done);
        EXPECT_EQ(GetStepState(step), StepState::NotChosen) << step;
    }
    EnsureStepStates();
    EXPECT_EQ(GetStepState(3), StepState::Done) << "made once";
    SetStepState(3, StepState::NotChosen);
}

} // namespace
} // namespace krt550
