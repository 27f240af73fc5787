// Layout 107: the start page.
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

constexpr int kIdPicture = 8230;
constexpr int kIdVersion = 60021;
constexpr int kIdStart = 158;

struct TextItem {
    int id;
    ControlKind kind;
    DialogRect rect;
    int text; ///< string number
    bool bold = false;
};

constexpr TextItem kItems[] = {
    {182, ControlKind::Label, {192, 6, 300, 14}, 18, true}, {181, ControlKind::GroupBox, {190, 24, 308, 254}, 17},
    {159, ControlKind::Label, {199, 36, 190, 14}, 19},      {158, ControlKind::PushButton, {430, 36, 60, 14}, 20},
    {161, ControlKind::Label, {199, 54, 290, 12}, 21},      {162, ControlKind::Label, {199, 68, 190, 14}, 15, true},
    {170, ControlKind::PushButton, {430, 68, 60, 14}, 14},  {160, ControlKind::CheckBox, {206, 84, 280, 11}, 13},
    {164, ControlKind::CheckBox, {206, 95, 280, 11}, 37},   {165, ControlKind::CheckBox, {206, 106, 280, 11}, 38},
    {166, ControlKind::CheckBox, {206, 117, 280, 11}, 39},  {167, ControlKind::CheckBox, {206, 128, 280, 11}, 40},
    {168, ControlKind::CheckBox, {206, 139, 280, 11}, 41},  {169, ControlKind::CheckBox, {206, 150, 280, 11}, 42},
    {171, ControlKind::CheckBox, {206, 170, 280, 11}, 22},  {173, ControlKind::CheckBox, {206, 181, 280, 11}, 23},
    {174, ControlKind::CheckBox, {206, 192, 280, 11}, 24},  {175, ControlKind::CheckBox, {206, 203, 280, 11}, 31},
    {176, ControlKind::CheckBox, {206, 214, 280, 11}, 25},  {177, ControlKind::CheckBox, {206, 225, 280, 11}, 26},
    {178, ControlKind::CheckBox, {206, 236, 280, 11}, 27},  {179, ControlKind::CheckBox, {206, 247, 280, 11}, 28},
    {180, ControlKind::CheckBox, {206, 258, 280, 11}, 29},
};

} // namespace

DialogLayout StartPageLayout() {
    CLayoutBuilder layout(107, kPageWidth, kPageHeight);
    layout.Add({.id = kIdPicture, .kind = ControlKind::Picture, .rect = {7, 7, 176, 242}, .picture = 86});
    layout.Add({.id = kIdVersion, .rect = {11, 254, 170, 12}, .text = QStringLiteral("Version: 2.0")});
    for (const TextItem& item : kItems)
        layout.Add({.id = item.id,
                    .kind = item.kind,
                    .rect = item.rect,
                    .text = StringTableText(item.text).value_or(QString()),
                    .bold = item.bold,
                    .mnemonic = item.id == kIdStart});
    return layout.BottomRow(true).Take();
}

} // namespace krt550
