// A row for a parameter that names a signal: names, numbers, and what keeps them together.
#include "tests/support/test_window.h"
#include "tests/wiring/wiring_files.h"

#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/dialog_layout.h"
#include "wizard/texts/wizard_text_store.h"
#include "wizard/wiring/index_row.h"

namespace krt550 {
namespace {

constexpr IndexRowIds kIds{.label = 1, .choice = 2, .index = 3, .value = 4, .unit = 5};

class RowResources : public CModuleResources {
public:
    std::optional<DialogLayout> GetLayout(int) const override {
        DialogLayout layout{.number = 1, .width = 200, .height = 100, .caption = {}, .controls = {}};
        const ControlKind kinds[] = {ControlKind::Label, ControlKind::DropDown, ControlKind::Edit, ControlKind::Label,
                                     ControlKind::Label};
        for (int id = 1; id <= 5; ++id)
            layout.controls.push_back({.id = id, .kind = kinds[id - 1], .rect = {0, id * 15, 100, 14}});
        return layout;
    }
};

class IndexRow : public testing::Test {
protected:
    IndexRow() {
        SetWizardDirectory(WiringFiles().Directory());
        ClearChanged();
        ClearUpdateList();
        m_window.Create();
        m_drive.words[1501] = 104;
    }
    void Choose(const QString& text) {
        Choices().setCurrentText(text);
        m_window.NotifySelected(&Choices());
    }
    void Type(const QString& text) {
        SetControlText(m_window.GetDlgItem(kIds.index), text);
        m_window.NotifyFocusLost(m_window.GetDlgItem(kIds.index));
    }
    QComboBox& Choices() { return *m_window.GetControl<QComboBox>(kIds.choice); }
    QString Shown() {
        QStringList texts;
        for (int id = 2; id <= 5; ++id)
            texts.append(GetControlText(m_window.GetDlgItem(id)));
        return texts.join('|');
    }

    RowResources m_resources;
    ResourceScope m_scope{m_resources};
    WiringDrive m_drive;
    MessageBoxes m_boxes;
    CTestWindow m_window;
    CIndexRow m_row{m_window, 1501, kIds};
    QString m_errors;
};

TEST_F(IndexRow, KeepsNameAndNumberTogether) {
    const char* const kOtherHint =
        "Other can not be selected from dropdown list. Use advanced view to set other value.";
    const struct {
        const char* name;
        std::function<void()> act;
        QString shown;
        QStringList writes;
        QString box = {};
    } cases[] = {
        {"as it is", [] {}, "104 Speed|104||", {}},
        {"chosen", [this] { Choose("Nothing"); }, "Nothing|0|?|?", {"write 1501=0"}},
        {"typed with a name", [this] { Type("0"); }, "Nothing|0|?|?", {"write 1501=0"}},
        {"typed without one", [this] { Type("105"); }, "Other|105|?|?", {"write 1501=105"}},
        {"typed with a sign", [this] { Type("-104"); }, "Other|-104|?|?", {"write 1501=65432"}},
        {"held with a sign",
         [this] {
             m_drive.words[1501] = quint16(-104);
             EXPECT_TRUE(m_row.Bind(&m_drive.Root(), CWizardTextStore::Instance().GetAOList(), m_errors));
         },
         "Other|-104||",
         {}},
        {"Other is no choice", [this] { Choose("Other"); }, "104 Speed|104||", {}, kOtherHint},
        {"a choice, then Other",
         [this] {
             Choose("Nothing");
             Choose("Other");
         },
         "Nothing|0|?|?",
         {"write 1501=0"},
         kOtherHint},
        {"there and back",
         [this] {
             Type("105");
             Type("104");
         },
         "104 Speed|104|?|?",
         {}},
        {"no number", [this] { Type("1o4"); }, "Other|1o4|?|?", {}, "For parameter 1501 \"1o4\" cannot be used.*"},
        {"larger than a word", [this] { Type("65640"); }, "Other|65640|?|?", {}, "For parameter 1501 given value*"},
        {"emptied", [this] { Type(""); }, "Other||?|?", {}},
    };
    for (const auto& c : cases) {
        m_drive.words[1501] = 104;
        for (const int id : {kIds.value, kIds.unit})
            SetControlText(m_window.GetDlgItem(id), QString());
        EXPECT_TRUE(m_row.Bind(&m_drive.Root(), CWizardTextStore::Instance().GetAOList(), m_errors)) << c.name;
        m_drive.TakeLog();
        if (!c.box.isEmpty())
            m_boxes.Expect(c.box);
        c.act();
        EXPECT_EQ(Shown(), c.shown) << c.name;
        const bool refused = c.writes.isEmpty() && m_row.IsChanged() && !c.box.isEmpty();
        if (refused)
            m_boxes.Expect(c.box);
        EXPECT_EQ(m_row.Write(), !refused) << c.name;
        EXPECT_EQ(m_drive.TakeWrites(), c.writes) << c.name;
        m_boxes.Verify();
    }
    EXPECT_LT(Choices().findText("Nothing"), Choices().findText("104 Speed")) << "by number, whatever the file's order";
    m_boxes.Expect("Error while population AO index");
    EXPECT_FALSE(m_row.Bind(&m_drive.Root(), {{1, 2}, {"one"}}, m_errors));
    CIndexRow missing(m_window, 1506, kIds);
    EXPECT_TRUE(missing.Bind(&m_drive.Root(), {}, m_errors));
    EXPECT_EQ(m_errors, "- Parameter 1506 not found from drive.\n\nUnable to use the specified parameter.\n");
    EXPECT_FALSE(Choices().isEnabled());
}

} // namespace
} // namespace krt550
