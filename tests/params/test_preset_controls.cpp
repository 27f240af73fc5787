#include "tests/params/row_fixture.h"

#include "wizard/params/preset_controls.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>

namespace krt550 {
namespace {

/// The table's rows 201 and 101 with presets, in a window that can be asked for all of them.
class CPresetWindow : public CWindow, public CPresetOwner {
public:
    CPresetWindow() : CWindow(1) {}
    void SetAllToPresets() override { ++asked; }
    int asked = 0;

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

    /// Right click, then the menu's entry with this text.
    void Choose(QWidget& control, const QString& text) {
        bool found = false;
        QTimer::singleShot(0, &control, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            for (QAction* action : menu->actions())
                if (action->text() == text) {
                    found = true;
                    menu->setActiveAction(action);
                    QTest::keyClick(menu, Qt::Key_Return);
                    return;
                }
            menu->close();
        });
        QContextMenuEvent rightClick(QContextMenuEvent::Mouse, QPoint(2, 2), control.mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(&control, &rightClick);
        EXPECT_TRUE(found) << text.toStdString();
    }

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

TEST_F(PresetControls, OfferTheirThreeCommandsOnARightClick) {
    Edit().SetPreset("4.5");
    Choose(Edit(), "Change to preset value");
    EXPECT_EQ(Edit().text(), "4.5");
    Choose(Combo(), "Change all to preset value");
    EXPECT_EQ(m_presetWindow.asked, 1);
    Choose(Edit(), "Set value and apply");
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 101=45", "read 101"})) << "forced: the row was not marked";
    Combo().setCurrentText("Fast");
    Choose(Combo(), "Set value and apply");
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 201=2", "read 201"}));
}

} // namespace
} // namespace krt550
