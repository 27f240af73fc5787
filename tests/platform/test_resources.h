#pragma once

#include "wizard/platform/resources.h"

namespace krt550 {

/// A set of resources with one layout: two edits, a drop-down and a button.
class TestResources : public CResources {
public:
    static constexpr int kLayout = 7;
    static constexpr int kEdit = 1;
    static constexpr int kDropDown = 2;
    static constexpr int kButton = 3;
    static constexpr int kOtherEdit = 4;
    static constexpr int kLabel = 5;

    std::optional<DialogLayout> GetLayout(int number) const override {
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
