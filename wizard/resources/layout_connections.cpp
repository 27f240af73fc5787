// Layouts 142 and 143: the pickers of what a digital and an analogue input are connected to.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

DialogLayout PickerLayout(int number, const QString& caption) {
    CLayoutBuilder layout(number, 166, 169, caption);
    layout.Add({.id = kIdConnectionList,
                .kind = ControlKind::CheckList,
                .rect = {7, 7, 152, 134},
                .name = QStringLiteral("Functions of the input")});
    const auto button = [&](int id, ControlKind kind, int x, const QString& text) {
        layout.Add({.id = id, .kind = kind, .rect = {x, 148, 50, 14}, .text = text, .mnemonic = true});
    };
    button(kIdCloseDialog, ControlKind::DefaultButton, 56, QStringLiteral("OK"));
    button(kIdCancelDialog, ControlKind::PushButton, 109, StringTableText(36).value_or(QString()));
    return layout.Take();
}

} // namespace

DialogLayout DigitalInputConnectionsLayout() {
    return PickerLayout(142, QStringLiteral("DI settings"));
}

DialogLayout AnalogueInputConnectionsLayout() {
    return PickerLayout(143, QStringLiteral("AI Settings"));
}

} // namespace krt550
