// Layouts 103, 104 and 112: the autotuning pages of steps 3, 4 and 7. General rows above, the run, its result rows
// below.
#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/string_table.h"

#include <span>

namespace krt550 {
namespace {

constexpr RowColumns kColumns = {.label = 122,
                                 .labelWidth = 136,
                                 .value = 262,
                                 .valueWidth = 60,
                                 .unit = 330,
                                 .unitWidth = 32,
                                 .minimum = 366,
                                 .maximum = 432,
                                 .limitWidth = 60};
constexpr int kGroupX = 115;
constexpr int kGroupWidth = 383;
constexpr int kHeadingHeight = 20;
constexpr int kListWidth = 160;
constexpr int kFirstPictureId = 60011;

struct Page {
    int number;
    const char* runCaption;
    std::span<const int> pictures;
    std::span<const LayoutRow> general;
    std::span<const LayoutRow> changed;
    int rowStep;
};

int AddRows(CLayoutBuilder& layout, int group, int y, const char* caption, std::span<const LayoutRow> rows, int step) {
    const RowGroupStyle style{.columns = kColumns,
                              .x = kGroupX,
                              .width = kGroupWidth,
                              .listWidth = kListWidth,
                              .headings = 10,
                              .firstRow = kHeadingHeight + 2,
                              .step = step,
                              .bottom = 4};
    return layout.RowGroup(group, y, QString::fromLatin1(caption), rows, style) + 3;
}

/// The group with Start, progress bar and Diagnosis; returns the y below it.
int AddRun(CLayoutBuilder& layout, int group, int y, const char* caption) {
    layout.Group(group, {kGroupX, y, kGroupWidth, 30}, QString::fromLatin1(caption));
    layout.Add({.id = kIdAutotuningLabel, .rect = {122, y + 11, 60, 14}, .text = QStringLiteral("Autotuning:")});
    layout.Add({.id = kIdAutotuningStart,
                .kind = ControlKind::PushButton,
                .rect = {186, y + 11, 60, 14},
                .text = StringTableText(20).value_or(QString())});
    layout.Add({.id = kIdAutotuningProgress, .kind = ControlKind::ProgressBar, .rect = {262, y + 11, 160, 14}});
    layout.Add({.id = kIdAutotuningDiagnosis,
                .kind = ControlKind::PushButton,
                .rect = {432, y + 11, 60, 14},
                .text = QStringLiteral("Diagnosis")});
    return y + 33;
}

DialogLayout Build(const Page& page) {
    CLayoutBuilder layout(page.number, kPageWidth, kPageHeight);
    const int count = static_cast<int>(page.pictures.size());
    const int height = (272 - 6 * (count - 1)) / count;
    for (int i = 0; i < count; ++i)
        layout.Add({.id = kFirstPictureId + i,
                    .kind = ControlKind::Picture,
                    .rect = {7, 6 + i * (height + 6), 102, height},
                    .picture = page.pictures[static_cast<std::size_t>(i)]});
    int y = AddRows(layout, 0, 4, "Set general parameters", page.general, page.rowStep);
    y = AddRun(layout, 1, y, page.runCaption);
    AddRows(layout, 2, y, "Changed parameters", page.changed, page.rowStep);
    return layout.BottomRow(true).Take();
}

} // namespace

DialogLayout FieldCurrentLayout() {
    static constexpr int kPictures[] = {10022, 10023};
    static constexpr LayoutRow kGeneral[] = {{9911, "Motor 1 nominal field current"},
                                             {406, "Motor 1 detected field exciter type", LayoutRowKind::Display},
                                             {9912, "Motor 1 used fex type", LayoutRowKind::List},
                                             {4401, "Field control mode", LayoutRowKind::List}};
    static constexpr LayoutRow kChanged[] = {{4402, "Motor 1 P-gain fex"},
                                             {4403, "Motor 1 i-time fex"},
                                             {4502, "Motor 1 positive limit field ctrl."},
                                             {9408, "Motor 1 fex node ID"}};
    return Build({103, "Autotuning field current controller", kPictures, kGeneral, kChanged, 17});
}

DialogLayout ArmatureLayout() {
    static constexpr int kPictures[] = {10020, 10021};
    static constexpr LayoutRow kGeneral[] = {{9903, "Motor 1 nominal current"},
                                             {2005, "Torque maximum"},
                                             {2006, "Torque minimum"},
                                             {2012, "Motor 1 current limit bridge 1"},
                                             {2013, "Motor 1 current limit bridge 2"}};
    static constexpr LayoutRow kChanged[] = {{4306, "Motor 1 P-gain armature current"},
                                             {4307, "Motor 1 i-time armature current"},
                                             {4308, "Motor 1 discontinuous current line"},
                                             {4309, "Motor 1 armature inductance"},
                                             {4310, "Motor 1 armature resistance"}};
    return Build({104, "Autotuning armature current controller", kPictures, kGeneral, kChanged, 17});
}

DialogLayout FieldWeakeningLayout() {
    static constexpr int kPictures[] = {10031, 10032, 10034};
    static constexpr LayoutRow kGeneral[] = {{9902, "Motor 1 nominal voltage"},
                                             {9904, "Motor 1 base speed"},
                                             {2001, "Motor 1 minimum speed"},
                                             {2002, "Motor 1 maximum speed"},
                                             {9911, "Motor 1 nominal field current"},
                                             {3012, "Motor 1 field loss level"},
                                             {4401, "Field control mode", LayoutRowKind::List}};
    static constexpr LayoutRow kChanged[] = {{4409, "P-gain EMF controller"},
                                             {4410, "I-time EMF controller"},
                                             {4412, "Field current at 40 % flux"},
                                             {4413, "Field current at 70 % flux"},
                                             {4414, "Field current at 90 % flux"}};
    return Build({112, "Autotuning EMF controller and flux linearization", kPictures, kGeneral, kChanged, 15});
}

} // namespace krt550
