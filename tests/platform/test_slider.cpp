#include "tests/platform/test_resources.h"
#include "wizard/platform/slider.h"
#include "wizard/platform/window.h"

#include <QTest>

namespace krt550 {
namespace {

/// A window with nothing but a slider, counting how often it is told of its release.
class CSliderWindow : public CWindow {
public:
    CSliderWindow() : CWindow(TestResources::kSliderLayout) {
        Create();
        Handle(TestResources::kSlider, ControlEvent::Released, [this] { ++releases; });
    }
    CSlider& Slider() { return *GetControl<CSlider>(TestResources::kSlider); }
    QPoint HandleCentre() {
        QStyleOptionSlider option;
        option.initFrom(&Slider());
        option.minimum = Slider().minimum();
        option.maximum = Slider().maximum();
        option.sliderPosition = option.sliderValue = Slider().value();
        option.tickPosition = Slider().tickPosition();
        return Slider()
            .style()
            ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &Slider())
            .center();
    }
    int releases = 0;
};

class SliderTest : public testing::Test {
protected:
    SliderTest() {
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_window.Slider().setFocus();
    }
    TestResources m_resources;
    ResourceScope m_scope{m_resources};
    CSliderWindow m_window;
};

TEST_F(SliderTest, TellsOnceWhenItIsLetGo) {
    CSlider& slider = m_window.Slider();
    EXPECT_EQ(slider.maximum(), 100);
    slider.setValue(50);
    EXPECT_EQ(m_window.releases, 0) << "set from code";
    const QPoint handle = m_window.HandleCentre();
    QTest::mousePress(&slider, Qt::LeftButton, {}, handle);
    QTest::mouseMove(&slider, handle + QPoint(20, 0));
    EXPECT_EQ(m_window.releases, 0) << "still held";
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, handle + QPoint(20, 0));
    EXPECT_GT(slider.value(), 50);
    EXPECT_EQ(m_window.releases, 1) << "the handle";
    const int former = slider.value();
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(2, handle.y()));
    EXPECT_LT(slider.value(), former);
    EXPECT_EQ(m_window.releases, 2) << "beside the handle";
}

TEST_F(SliderTest, TakesAKeyForARelease) {
    CSlider& slider = m_window.Slider();
    struct {
        Qt::Key key;
        int value;
        int releases;
    } const steps[] = {{Qt::Key_Left, 0, 0}, {Qt::Key_Right, 1, 1}, {Qt::Key_End, 100, 2}, {Qt::Key_A, 100, 2}};
    for (const auto& step : steps) {
        QTest::keyClick(&slider, step.key);
        EXPECT_EQ(slider.value(), step.value) << step.key;
        EXPECT_EQ(m_window.releases, step.releases) << step.key;
    }
    QTest::keyPress(&slider, Qt::Key_Left);
    QTest::keyPress(&slider, Qt::Key_Left);
    EXPECT_EQ(m_window.releases, 2) << "a held key";
    QTest::keyRelease(&slider, Qt::Key_Left);
    EXPECT_EQ(m_window.releases, 3);
    const int former = slider.value();
    QWheelEvent wheel(QPointF(5, 5), slider.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&slider, &wheel);
    EXPECT_EQ(slider.value(), former) << "the wheel leaves it alone";
}

/// Whether the picture has a mark below the handle's way near x.
bool HasMark(const QImage& picture, int x) {
    const int y = picture.height() - 2;
    for (int near = x - 2; near <= x + 2; ++near)
        if (picture.valid(near, y) && qGray(picture.pixel(near, y)) < 64)
            return true;
    return false;
}

TEST_F(SliderTest, ShowsAMarkAtBothEndsAndInBetween) {
    CSlider& slider = m_window.Slider();
    slider.setRange(20, 100);
    slider.SetMark(30);
    const auto xOf = [&](int value) {
        slider.setValue(value);
        return m_window.HandleCentre().x();
    };
    const int low = xOf(20), mark = xOf(30), middle = xOf(60), high = xOf(100);
    QImage picture = slider.grab().toImage();
    EXPECT_TRUE(HasMark(picture, low) && HasMark(picture, mark) && HasMark(picture, high));
    EXPECT_FALSE(HasMark(picture, middle));
    slider.SetMark(200);
    picture = slider.grab().toImage();
    EXPECT_TRUE(HasMark(picture, low) && HasMark(picture, high));
    EXPECT_FALSE(HasMark(picture, mark)) << "outside the range";
}

} // namespace
} // namespace krt550
