#include "wizard/resources/module_resources.h"
#include "wizard/shell/color_static.h"
#include "wizard/shell/step_icons.h"
#include "wizard/shell/strip_bitmap_button.h"

#include <QTest>

namespace krt550 {
namespace {

/// Strips of 81 x 23 pixels, so that two and three frames can be told apart.
class StripResources : public CModuleResources {
public:
    QPixmap GetPicture(int, QSize, qreal) const override { return QPixmap(81, 23); }
};

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

TEST(StripBitmapButton, ShowsUpPressedAndDisabledAndLatchesOnlyAsTheLocalButton) {
    const StripResources resources;
    const ResourceScope scope(resources);
    for (const char* id : {"99", "8312"}) {
        CStripBitmapButton button;
        button.setObjectName(id);
        button.LoadStripBitmap(10070);
        EXPECT_EQ(button.GetShownFrame(), 0);
        QTest::mousePress(&button, Qt::LeftButton);
        EXPECT_EQ(button.GetShownFrame(), 1);
        QTest::mouseRelease(&button, Qt::LeftButton);
        EXPECT_EQ(button.GetShownFrame(), id == std::string("8312") ? 1 : 0) << id;
        QTest::mouseClick(&button, Qt::LeftButton);
        EXPECT_EQ(button.GetShownFrame(), 0) << id;
        button.setEnabled(false);
        EXPECT_EQ(button.GetShownFrame(), 2) << id;
    }
}

TEST(ColorStatic, HasALookForEachStatus) {
    CColorStatic status;
    const QColor face = status.palette().color(QPalette::Button);
    const QColor windowText = status.palette().color(QPalette::WindowText);
    const struct {
        StaticLook look;
        bool inverted;
        QColor text, behind;
    } looks[] = {{StaticLook::Good, false, Qt::black, QColor(0, 255, 0)},
                 {StaticLook::Bad, false, Qt::black, QColor(255, 0, 0)},
                 {StaticLook::Neutral, false, windowText, face},
                 {StaticLook::Neutral, true, Qt::white, Qt::black}};
    for (const auto& l : looks) {
        status.SetLook(l.look);
        if (l.inverted)
            status.SetInverted(true);
        EXPECT_TRUE(status.GetColors().text == l.text && status.GetColors().behindText == l.behind) << &l - looks;
    }
    status.SetLook(StaticLook::Grey);
    status.SetInverted(true);
    status.SetInverted(false);
    EXPECT_EQ(status.GetColors().behindRest, QColor(192, 192, 192)) << "back to grey, not to plain";
    EXPECT_FALSE(status.GetColors().behindText);
    status.SetBoldFont();
    status.SetItalicFont();
    EXPECT_TRUE(status.font().bold() && status.font().italic());
}

} // namespace
} // namespace krt550
