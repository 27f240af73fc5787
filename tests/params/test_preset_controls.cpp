#include "tests/params/row_fixture.h"

#include "wizard/params/preset_controls.h"

#include <QTest>

namespace krt550 {
namespace {

/// The table's rows 201 and 101 with presets, in a window of their own.
class CPresetWindow : public CWindow, public CPresetOwner {
public:
    CPresetWindow() : CWindow(1) {}
    void SetAllToPresets() override {}

protected:
    QWidget* CreateControl(const ControlLayout& control) override {
        return control.id == ValueId(201)   ? static_cast<QWidget*>(new CPresetComboBox(this))
               : control.id == ValueId(101) ? new CPresetEdit(this)
                                            : nullptr;
    }
};

class PresetControls : public RowFixture {
protected:
    PresetControls() {
        m_presetWindow.Create();
        m_presetWindow.show();
        EXPECT_TRUE(m_presetRows.Bind(&m_drive.Root(), errors));
        Combo().SetParameter(m_drive.Root().FindChildByRegister("201"));
        Edit().SetParameter(m_drive.Root().FindChildByRegister("101"));
        m_drive.TakeLog();
    }
    CPresetComboBox& Combo() { return *m_presetWindow.GetControl<CPresetComboBox>(ValueId(201)); }
    CPresetEdit& Edit() { return *m_presetWindow.GetControl<CPresetEdit>(ValueId(101)); }

    CPresetWindow m_presetWindow;
    CRowTable m_presetRows{m_presetWindow, kRows, TextSource::ConfigurableFile};
};

TEST_F(PresetControls, ChangeToTheirPresetWhereTheyCanAndMarkTheirRow) {
    Edit().ChangeToPreset();
    Combo().ChangeToPreset();
    Edit().SetPreset("4.5");
    Edit().setEnabled(false);
    Edit().ChangeToPreset();
    EXPECT_EQ(Edit().text(), "0.0") << "without a preset, or disabled";
    EXPECT_FALSE(IsChanged(101) || IsChanged(201));
    Edit().setEnabled(true);
    Edit().ChangeToPreset();
    Combo().SetPreset("2");
    Combo().ChangeToPreset();
    EXPECT_EQ(Edit().text() + ' ' + Combo().currentText(), "4.5 Fast");
    EXPECT_TRUE(IsChanged(101) && IsChanged(201));
    EXPECT_EQ(m_drive.TakeLog(), QStringList()) << "nothing is written";
}

TEST_F(PresetControls, KeepTheOldValueWhenThePresetIsRefused) {
    Combo().SetPreset("8");
    m_boxes.Expect("Parameter 2.01 Switch: 8 is not one of its values.");
    Combo().ChangeToPreset();
    EXPECT_EQ(Combo().currentText(), "Slow");
    Combo().clear();
    Combo().SetPreset("2");
    m_boxes.Expect("Parameter 201 valuelist not found from drive.\n\nUnable to use the specified parameter.");
    Combo().ChangeToPreset();
}

} // namespace
} // namespace krt550
