// Layouts 103, 104 and 112: the autotuning pages of steps 3, 4 and 7. General rows above, the run, its result rows
// below.
#include "wizard/resources/autotuning_parts.h"
#include "wizard/resources/layouts.h"

namespace krt550 {
namespace {

using Kind = LayoutRowKind;

struct Page {
    int number;
    const char* runCaption;
    std::span<const int> pictures;
    std::span<const LayoutRow> general;
    std::span<const LayoutRow> changed;
    int rowStep;
};

DialogLayout Build(const Page& page) {
    CLayoutBuilder layout(page.number, kPageWidth, kPageHeight);
    AddAutotuningPictures(layout, page.pictures);
    int y = AddAutotuningRows(layout, 0, 4, "Set general parameters", page.general, page.rowStep);
    layout.Group(1, {kAutotuningGroupX, y, kAutotuningGroupWidth, 30}, QString::fromLatin1(page.runCaption));
    AddAutotuningRun(layout, y + 11);
    AddAutotuningRows(layout, 2, y + 33, "Changed parameters", page.changed, page.rowStep);
    return layout.BottomRow(true).Take();
}

} // namespace

DialogLayout FieldCurrentLayout() {
    static constexpr int kPictures[] = {10022, 10023};
    static constexpr LayoutRow kGeneral[] = {{9911, "Motor 1 nominal field current"},
                                             {406, "Motor 1 detected field exciter type", Kind::Display},
                                             {9912, "Motor 1 used fex type", Kind::List},
                                             {4401, "Field control mode", Kind::List}};
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
    static constexpr LayoutRow kGeneral[] = {
        {9902, "Motor 1 nominal voltage"},       {9904, "Motor 1 base speed"},
        {2001, "Motor 1 minimum speed"},         {2002, "Motor 1 maximum speed"},
        {9911, "Motor 1 nominal field current"}, {3012, "Motor 1 field loss level"},
        {4401, "Field control mode", Kind::List}};
    static constexpr LayoutRow kChanged[] = {{4409, "P-gain EMF controller"},
                                             {4410, "I-time EMF controller"},
                                             {4412, "Field current at 40 % flux"},
                                             {4413, "Field current at 70 % flux"},
                                             {4414, "Field current at 90 % flux"}};
    return Build({112, "Autotuning EMF controller and flux linearization", kPictures, kGeneral, kChanged, 15});
}

} // namespace krt550
