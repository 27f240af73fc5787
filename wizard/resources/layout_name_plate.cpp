// Layout 100: step 1, name plate data.
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"

#include "wizard/resources/control_ids.h"

namespace krt550 {
namespace {

constexpr RowDef kGeneral[] = {{.reg = 9901, .kind = RowKind::List, .label = "Language"}};
constexpr RowDef kMotor[] = {
    {.reg = 9902, .label = "Motor 1 nominal voltage"}, {.reg = 9903, .label = "Motor 1 nominal current"},
    {.reg = 9904, .label = "Motor 1 base speed"},      {.reg = 2001, .label = "Motor 1 minimum speed"},
    {.reg = 2002, .label = "Motor 1 maximum speed"},   {.reg = 9911, .label = "Motor 1 nominal field current"},
};
constexpr RowDef kProtections[] = {{.reg = 3009, .label = "Armature overcurrent level"},
                                   {.reg = 3016, .label = "Motor 1 overspeed"}};
constexpr RowDef kMains[] = {{.reg = 9910, .label = "Nominal mains voltage"}};
constexpr RowGroupDef kGroups[] = {
    {.caption = "Set general parameters", .headings = false, .rows = kGeneral},
    {.caption = "Set motor nameplate data", .rows = kMotor},
    {.caption = "Protections", .rows = kProtections},
    {.caption = "Set mains / supply data", .rows = kMains},
};
static_assert(IsSound(kGroups));

constexpr int kPictureOne = 60011;
constexpr int kPictureTwo = 60012;

} // namespace

constinit const PageRows kNamePlateRows{.layout = 100, .groups = kGroups, .update = UpdateWhen::AllFound};

DialogLayout NamePlateLayout() {
    CLayoutBuilder layout(100, kPageWidth, kPageHeight);
    layout.Add({.id = kPictureOne, .kind = ControlKind::Picture, .rect = {7, 10, 102, 130}, .picture = 10046});
    layout.Add({.id = kPictureTwo, .kind = ControlKind::Picture, .rect = {7, 146, 102, 130}, .picture = 10047});
    RowGroupStyle style = kPageStyle;
    style.listWidth = 100;
    CRowStack(layout, kNamePlateRows, style, kRowsTop, kRowsBottom).AddGroups(std::size(kGroups));
    return layout.BottomRow(true, 265).Take();
}

} // namespace krt550
