#pragma once

#include "wizard/platform/resources.h"

namespace krt550 {

/// A set of resources: two edits, a drop-down and a button; a layout larger than that; a place for a child between two
/// edits; a slider.
class TestResources : public CResources {
public:
    static constexpr int kLayout = 7;
    static constexpr int kEdit = 1;
    static constexpr int kDropDown = 2;
    static constexpr int kButton = 3;
    static constexpr int kOtherEdit = 4;
    static constexpr int kLabel = 5;
    static constexpr int kLargeLayout = 8;
    static constexpr int kParentLayout = 9;
    static constexpr int kPlaceholder = 10;
    static constexpr int kEditBefore = 11;
    static constexpr int kEditAfter = 12;
    static constexpr int kSliderLayout = 13;
    static constexpr int kSlider = 14;

    static constexpr int kDialogLayout = 15;
    static constexpr int kTick = 16;
    static constexpr int kList = 17;
    static constexpr int kText = 18;
    static constexpr int kClose = 2; // CDialog::kCancel

    /// A dialog of all that a person ticks, reads and presses.
    static DialogLayout DialogWithAllLayout() {
        DialogLayout layout{.number = kDialogLayout, .width = 200, .height = 120, .caption = "All", .controls = {}};
        layout.controls = {
            {.id = kButton, .kind = ControlKind::PushButton, .rect = {4, 4, 60, 14}, .text = "Go", .mnemonic = true},
            {.id = kTick, .kind = ControlKind::CheckBox, .rect = {4, 20, 60, 14}, .text = "Tick"},
            {.id = kLabel, .rect = {4, 36, 60, 14}, .text = "Connections", .buddy = kList},
            {.id = kList, .kind = ControlKind::CheckList, .rect = {70, 4, 60, 60}},
            {.id = kText, .kind = ControlKind::MultilineText, .rect = {70, 70, 60, 30}, .name = "Help"},
            {.id = kEdit, .kind = ControlKind::Edit, .rect = {4, 50, 60, 14}},
            {.id = kClose,
             .kind = ControlKind::DefaultButton,
             .rect = {4, 104, 60, 14},
             .text = "< Close",
             .mnemonic = true},
        };
        return layout;
    }

    static DialogLayout ParentLayout() {
        DialogLayout layout{.number = kParentLayout, .width = 400, .height = 300, .caption = {}, .controls = {}};
        layout.controls = {
            {.id = kEditBefore, .kind = ControlKind::Edit, .rect = {4, 4, 60, 14}},
            {.id = kPlaceholder, .kind = ControlKind::Placeholder, .rect = {30, 20, 10, 10}},
            {.id = kEditAfter, .kind = ControlKind::Edit, .rect = {4, 280, 60, 14}},
        };
        return layout;
    }

    std::optional<DialogLayout> GetLayout(int number) const override {
        if (number == kDialogLayout)
            return DialogWithAllLayout();
        if (number == kParentLayout)
            return ParentLayout();
        if (number == kSliderLayout)
            return DialogLayout{.number = number,
                                .width = 120,
                                .height = 30,
                                .caption = {},
                                .controls = {{.id = kSlider, .kind = ControlKind::Slider, .rect = {4, 4, 100, 16}}}};
        if (number == kLargeLayout)
            return DialogLayout{.number = number, .width = 210, .height = 90, .caption = "Large", .controls = {}};
        if (number != kLayout)
            return std::nullopt;
        DialogLayout layout{.number = number, .width = 200, .height = 100, .caption = "Test", .controls = {}};
        layout.controls = {
            {.id = kLabel, .rect = {4, 4, 60, 14}, .text = "Torque & speed", .buddy = kEdit},
            {.id = kEdit, .kind = ControlKind::Edit, .rect = {70, 4, 60, 14}, .reg = 101},
            {.id = kOtherEdit, .kind = ControlKind::Edit, .rect = {70, 24, 60, 14}},
            {.id = kDropDown, .kind = ControlKind::DropDown, .rect = {4, 44, 60, 14}},
            {.id = kButton, .kind = ControlKind::PushButton, .rect = {4, 64, 60, 14}, .text = "Go"},
        };
        return layout;
    }
    std::optional<QString> GetString(int) const override { return std::nullopt; }
    QPixmap GetPicture(int, QSize, qreal) const override { return {}; }
    std::optional<MenuLayout> GetMenu(int) const override { return std::nullopt; }
};

} // namespace krt550
