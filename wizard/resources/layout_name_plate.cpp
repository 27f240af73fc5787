// Layout 100: step 1, name plate data.
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"

#include "wizard/resources/control_ids.h"

namespace krt550 {
namespace {

constexpr int kRowStep = 16;
constexpr int kPictureOne = 60011;
constexpr int kPictureTwo = 60012;

} // namespace

DialogLayout NamePlateLayout() {
    CLayoutBuilder layout(100, kPageWidth, kPageHeight);
    layout.Add({.id = kPictureOne, .kind = ControlKind::Picture, .rect = {7, 10, 102, 130}, .picture = 10046});
    layout.Add({.id = kPictureTwo, .kind = ControlKind::Picture, .rect = {7, 146, 102, 130}, .picture = 10047});

    layout.Group(0, {115, 4, 383, 32}, QStringLiteral("Set general parameters"));
    layout.ListRow(9901, QStringLiteral("Language"), 16, kPageColumns, 100);

    layout.Group(1, {115, 39, 383, 126}, QStringLiteral("Set motor nameplate data")).Headings(1, 49, kPageColumns);
    int y = 61;
    for (const auto& [reg, label] : {std::pair<quint16, const char*>{9902, "Motor 1 nominal voltage"},
                                     {9903, "Motor 1 nominal current"},
                                     {9904, "Motor 1 base speed"},
                                     {2001, "Motor 1 minimum speed"},
                                     {2002, "Motor 1 maximum speed"},
                                     {9911, "Motor 1 nominal field current"}}) {
        layout.EditRow(reg, QString::fromLatin1(label), y, kPageColumns);
        y += kRowStep;
    }

    layout.Group(2, {115, 168, 383, 61}, QStringLiteral("Protections")).Headings(2, 178, kPageColumns);
    layout.EditRow(3009, QStringLiteral("Armature overcurrent level"), 190, kPageColumns);
    layout.EditRow(3016, QStringLiteral("Motor 1 overspeed"), 190 + kRowStep, kPageColumns);

    layout.Group(3, {115, 232, 383, 46}, QStringLiteral("Set mains / supply data")).Headings(3, 242, kPageColumns);
    layout.EditRow(9910, QStringLiteral("Nominal mains voltage"), 254, kPageColumns);

    return layout.BottomRow(true, 265).Take();
}

} // namespace krt550
