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

TEST(StripBitmapButton, TakesTheSizeOfOneFrame) {
    const StripResources resources;
    const ResourceScope scope(resources);
    const std::pair<int, int> widths[] = {{10066, 40}, {10070, 27}, {116, 27}, {10071, 27}, {10072, 27}, {10073, 40}};
    for (const auto& [strip, width] : widths) {
        CStripBitmapButton button;
        button.move(5, 6);
        EXPECT_FALSE(button.IsBitmapLoaded());
        button.LoadStripBitmap(strip);
        EXPECT_TRUE(button.IsBitmapLoaded());
        EXPECT_EQ(button.geometry(), QRect(5, 6, width, 23)) << strip;
    }
}

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
    const QColor lightGrey(192, 192, 192);

    status.SetLook(StaticLook::Good);
    EXPECT_TRUE(status.GetColors().text == Qt::black && status.GetColors().behindText == QColor(0, 255, 0));
    status.SetLook(StaticLook::Bad);
    EXPECT_TRUE(status.GetColors().text == Qt::black && status.GetColors().behindText == QColor(255, 0, 0));
    status.SetLook(StaticLook::Neutral);
    EXPECT_TRUE(status.GetColors().text == windowText && status.GetColors().behindText == face);
    status.SetInverted(true);
    EXPECT_TRUE(status.GetColors().text == Qt::white && status.GetColors().behindText == QColor(Qt::black));
    status.SetInverted(false);
    EXPECT_TRUE(status.GetColors().text == windowText && status.GetColors().behindRest == face);

    status.SetLook(StaticLook::Grey);
    EXPECT_EQ(status.GetColors().behindRest, lightGrey);
    status.SetInverted(true);
    status.SetInverted(false);
    EXPECT_EQ(status.GetColors().behindRest, lightGrey) << "back to grey, not to plain";
    EXPECT_FALSE(status.GetColors().behindText);

    status.SetBoldFont();
    status.SetItalicFont();
    EXPECT_TRUE(status.font().bold() && status.font().italic());
}

} // namespace
} // namespace krt550
