// Layouts 103, 104 and 112: the autotuning pages of steps 3, 4 and 7. General rows above, the run, its result rows
// below.
#include "wizard/resources/autotuning_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"

namespace krt550 {
namespace {

constexpr const char* kGeneralCaption = "Set general parameters";
constexpr const char* kChangedCaption = "Changed parameters";

constexpr RowDef kFieldGeneral[] = {
    {.reg = 9911, .label = "Motor 1 nominal field current"},
    {.reg = 406, .kind = RowKind::Display, .label = "Motor 1 detected field exciter type", .refreshed = true},
    {.reg = 9912, .kind = RowKind::List, .label = "Motor 1 used fex type"},
    {.reg = 4401, .kind = RowKind::List, .label = "Field control mode"},
};
constexpr RowDef kFieldChanged[] = {
    {.reg = 4402, .label = "Motor 1 P-gain fex"},
    {.reg = 4403, .label = "Motor 1 i-time fex"},
    {.reg = 4502, .label = "Motor 1 positive limit field ctrl."},
    {.reg = 9408, .label = "Motor 1 fex node ID"},
};
constexpr RowGroupDef kFieldGroups[] = {{.caption = kGeneralCaption, .rows = kFieldGeneral},
                                        {.caption = kChangedCaption, .rows = kFieldChanged}};

constexpr RowDef kArmatureGeneral[] = {
    {.reg = 9903, .label = "Motor 1 nominal current"},
    {.reg = 2005, .label = "Torque maximum"},
    {.reg = 2006, .label = "Torque minimum"},
    {.reg = 2012, .label = "Motor 1 current limit bridge 1"},
    {.reg = 2013, .label = "Motor 1 current limit bridge 2"},
};
constexpr RowDef kArmatureChanged[] = {
    {.reg = 4306, .label = "Motor 1 P-gain armature current"},
    {.reg = 4307, .label = "Motor 1 i-time armature current"},
    {.reg = 4308, .label = "Motor 1 discontinuous current line"},
    {.reg = 4309, .label = "Motor 1 armature inductance"},
    {.reg = 4310, .label = "Motor 1 armature resistance"},
};
constexpr RowGroupDef kArmatureGroups[] = {{.caption = kGeneralCaption, .rows = kArmatureGeneral},
                                           {.caption = kChangedCaption, .rows = kArmatureChanged}};

// The field control mode is bound first, and written after the values that it builds on.
constexpr RowDef kWeakeningGeneral[] = {{.reg = 9902},
                                        {.reg = 9904},
                                        {.reg = 2001},
                                        {.reg = 2002},
                                        {.reg = 9911},
                                        {.reg = 3012},
                                        {.reg = 4401, .kind = RowKind::List, .bindRank = -1}};
constexpr RowDef kWeakeningChanged[] = {{.reg = 4409}, {.reg = 4410}, {.reg = 4412}, {.reg = 4413}, {.reg = 4414}};
constexpr RowGroupDef kWeakeningGroups[] = {{.caption = kGeneralCaption, .rows = kWeakeningGeneral},
                                            {.caption = kChangedCaption, .rows = kWeakeningChanged}};
static_assert(IsSound(kFieldGroups) && IsSound(kArmatureGroups) && IsSound(kWeakeningGroups));

DialogLayout Build(const PageRows& rows, const char* runCaption, std::span<const int> pictures) {
    CLayoutBuilder layout(rows.layout, kPageWidth, kPageHeight);
    layout.Pictures(pictures);
    CRowStack stack(layout, rows, kPageStyle, kRowsTop, kRowsBottom, kAutotuningRunHeight + kPageStyle.gap);
    stack.AddGroup();
    const int run = stack.AddFrame(kAutotuningRunHeight, QString::fromLatin1(runCaption));
    AddAutotuningRun(layout, run + kAutotuningRunY);
    stack.AddGroup();
    return layout.BottomRow(true).Take();
}

} // namespace

constinit const PageRows kFieldCurrentRows{.layout = 103, .groups = kFieldGroups};
constinit const PageRows kArmatureRows{.layout = 104, .groups = kArmatureGroups};
constinit const PageRows kFieldWeakeningRows{.layout = 112, .groups = kWeakeningGroups};

DialogLayout FieldCurrentLayout() {
    static constexpr int kPictures[] = {10022, 10023};
    return Build(kFieldCurrentRows, "Autotuning field current controller", kPictures);
}

DialogLayout ArmatureLayout() {
    static constexpr int kPictures[] = {10020, 10021};
    return Build(kArmatureRows, "Autotuning armature current controller", kPictures);
}

DialogLayout FieldWeakeningLayout() {
    static constexpr int kPictures[] = {10031, 10032, 10034};
    return Build(kFieldWeakeningRows, "Autotuning EMF controller and flux linearization", kPictures);
}

} // namespace krt550
