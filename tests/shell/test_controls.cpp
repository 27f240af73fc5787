#include "wizard/resources/module_resources.h"
#include "wizard/shell/color_static.h"
#include "wizard/shell/step_icons.h"
#include "wizard/shell/strip_bitmap_button.h"

#include <QTest>

namespace krt550 {
namespace {

// Somebody who needs large letters needs large pictures between them, too.
TEST(StripBitmapButton, GrowsWithTheFontAsTheDigitsDo) {
    const CModuleResources resources;
    const ResourceScope scope(resources);
    CStripBitmapButton button;
    QLabel digit;
    QFont large = button.font();
    for (const int height : {1, 2}) {
        large.setPixelSize(12 * height);
        button.setFont(large);
        button.LoadStripBitmap(10066);
        digit.setFont(large);
        ShowStepIcon(digit, 3, StepState::Done);
        EXPECT_TRUE(!digit.toolTip().isEmpty() && digit.toolTip() == digit.accessibleName());
        EXPECT_NEAR(button.height(), 23 * height, 3 * height);
        EXPECT_NEAR(digit.pixmap(Qt::ReturnByValue).deviceIndependentSize().height(), 16 * height, 2 * height);
    }
}

TEST(ColorStatic, IsGreyAgainWhenItIsNoLongerInverted) {
    CColorStatic status;
    status.SetLook(StaticLook::Grey);
    status.SetInverted(true);
    EXPECT_EQ(status.GetColors().behindText, QColor(Qt::black));
    status.setText("    x");
    EXPECT_EQ(status.grab().toImage().pixelColor(3, status.height() / 2), Qt::black);
    status.SetInverted(false);
    EXPECT_EQ(status.GetColors().behindRest, QColor(192, 192, 192)) << "not plain";
}

} // namespace
} // namespace krt550
