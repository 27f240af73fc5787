#include "tests/params/row_fixture.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/preset_controls.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>

namespace krt550 {
namespace {

/// A window that can be asked for all its presets.
class CPresetWindow : public QWidget, public CPresetOwner {
public:
    void SetAllToPresets() override { ++asked; }
    int asked = 0;
};

class PresetControls : public RowFixture {
protected:
    PresetControls() {
        m_combo.SetParameter(m_drive.Root().FindChildByRegister("201"));
        m_combo.addItems({"Slow", "Fast"});
        m_edit.SetParameter(m_drive.Root().FindChildByRegister("101"));
    }

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
    CPresetComboBox m_combo{&m_presetWindow};
    CPresetEdit m_edit{&m_presetWindow};
};

TEST_F(PresetControls, ChangeToTheirPresetWithoutWriting) {
    m_combo.SetPreset("2");
    m_combo.ChangeToPreset();
    EXPECT_EQ(m_combo.currentText(), "Fast");
    EXPECT_TRUE(IsChanged(201));
    m_edit.SetPreset("4.5");
    m_edit.ChangeToPreset();
    EXPECT_EQ(m_edit.text(), "4.5");
    EXPECT_EQ(m_drive.TakeLog(), QStringList());
}

TEST_F(PresetControls, DoNothingWhenDisabledOrWithoutPreset) {
    m_edit.setText("1");
    m_edit.ChangeToPreset();
    m_edit.SetPreset("4.5");
    m_edit.setEnabled(false);
    m_edit.ChangeToPreset();
    EXPECT_EQ(m_edit.text(), "1");
    m_combo.ChangeToPreset();
    EXPECT_FALSE(IsChanged(201));
}

TEST_F(PresetControls, KeepTheOldValueWhenThePresetIsRefused) {
    m_combo.SetPreset("8");
    m_boxes.Expect("Parameter 2.01 Switch: 8 is not one of its values.");
    m_combo.ChangeToPreset();
    EXPECT_EQ(m_combo.currentText(), "Slow");
    m_combo.clear();
    m_combo.SetPreset("2");
    m_boxes.Expect("Parameter 201 valuelist not found from drive.\n\nUnable to use the specified parameter.");
    m_combo.ChangeToPreset();
}

TEST_F(PresetControls, OfferTheirThreeCommandsOnARightClick) {
    m_presetWindow.show();
    m_edit.SetPreset("4.5");
    Choose(m_edit, "Change to preset value");
    EXPECT_EQ(m_edit.text(), "4.5");
    Choose(m_combo, "Change all to preset value");
    EXPECT_EQ(m_presetWindow.asked, 1);
    Choose(m_edit, "Set value and apply");
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 101=45", "read 101"})) << "forced: the row was not marked";
    m_combo.setCurrentText("Fast"); // which the drive calls "On"
    Choose(m_combo, "Set value and apply");
    EXPECT_EQ(m_drive.TakeLog(), (QStringList{"write 201=2", "read 201"}));
}

} // namespace
} // namespace krt550
