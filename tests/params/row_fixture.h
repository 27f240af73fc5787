#pragma once

#include "tests/support/fake_drive.h"
#include "tests/support/message_boxes.h"
#include "tests/support/wizard_files.h"
#include "wizard/params/changed_registers.h"
#include "wizard/params/cyclic_update.h"
#include "wizard/params/failure_pass.h"
#include "wizard/params/parameter_rows.h"
#include "wizard/platform/window.h"
#include "wizard/resources/module_resources.h"
#include "wizard/texts/wizard_directory.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace krt550 {

/// Texts that the tests of this room count on.
inline const WizardFiles& ParamsFiles() {
    static const WizardFiles files("PAN\t101\tMotor speed\n"
                                   "VAN\t301\t3\tThree\nVAN\t301\t1\tOne\nVAN\t301\t20\tTwenty\n"
                                   "VAN\t302\t40\tForty\nVAN\t302\t5\tFive\n"
                                   "UPDATE\t7\t5\nUPDATE\t8\t0\n");
    return files;
}

/// A window with loose row controls, and a drive behind it.
class RowFixture : public testing::Test {
protected:
    RowFixture()
        : m_drive({Number(101, "Speed", 1, -10, 10, "rpm"), Number(102, "Count", 0, 0, 0),
                   List(201, "Switch", {{0, "Off"}, {1, "#excl#"}, {2, "On"}}),
                   List(301, "Texts", {{1, "x"}, {3, "y"}}), Number(302, "Number with texts", 0, 0, 100)}) {
        SetWizardDirectory(ParamsFiles().Directory());
        ClearChanged();
        ClearUpdateList();
        for (QWidget* control : std::initializer_list<QWidget*>{&label, &edit, &dropDown, &unit, &minimum, &maximum})
            control->setParent(&window);
        edit.setObjectName("20101");
        dropDown.setObjectName("20201");
    }

    bool BindEdit(quint16 reg) {
        return BindEditRow(&m_drive.Root(), parameter, reg, &label, &edit, errors, {&unit, &minimum, &maximum});
    }
    bool BindList(quint16 reg) {
        return BindListRow(&m_drive.Root(), parameter, reg, &label, &dropDown, errors, {&unit, &minimum, &maximum});
    }
    QStringList Choices() const {
        QStringList choices;
        for (int i = 0; i < dropDown.count(); ++i)
            choices.append(dropDown.itemText(i));
        return choices;
    }

    CModuleResources m_resources;
    ResourceScope m_scope{m_resources};
    FakeDrive m_drive;
    MessageBoxes m_boxes;
    QWidget window;
    QLabel label;
    QLineEdit edit;
    QComboBox dropDown;
    QLabel unit;
    QLabel minimum;
    QLabel maximum;
    CParameter* parameter = nullptr;
    QString errors;

    // The controls are members: the window must not delete them.
    ~RowFixture() override {
        for (QWidget* control : std::initializer_list<QWidget*>{&label, &edit, &dropDown, &unit, &minimum, &maximum})
            control->setParent(nullptr);
    }
};

} // namespace krt550
