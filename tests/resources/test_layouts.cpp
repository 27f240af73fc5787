// Every layout as it is drawn: nothing clipped, nothing overlapping, nothing outside, every id once.
#include "wizard/platform/dialog_layout.h"
#include "wizard/platform/push_button.h"
#include "wizard/platform/row_ids.h"
#include "wizard/platform/window.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/module_resources.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>
#include <map>
#include <set>

namespace krt550 {
namespace {

constexpr int kLayouts[] = {100, 101, 103, 104, 107, 110, 111,   112,   122,   133,   134,  135,
                            136, 137, 138, 139, 146, 147, 10056, 10057, 10058, 10062, 10063};

class CLayoutWindow : public CWindow {
public:
    using CWindow::CWindow;

protected:
    /// A control that a page makes itself draws a picture and no text.
    QWidget* CreateControl(const ControlLayout& control) override {
        return control.kind == ControlKind::Custom ? new QWidget(this) : nullptr;
    }
};

/// Room that a control's text needs; nothing for controls whose text may scroll or wrap.
int NeededWidth(const QWidget* control) {
    if (const auto* label = qobject_cast<const QLabel*>(control); label && !label->wordWrap())
        return label->fontMetrics().horizontalAdvance(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(control); button && !button->text().isEmpty())
        return button->sizeHint().width();
    if (const auto* group = qobject_cast<const QGroupBox*>(control))
        return group->fontMetrics().horizontalAdvance(group->title());
    return 0;
}

/// Whether a screen reader has to call a control something; one that a page makes itself is named there.
bool Speaks(const QWidget& control) {
    return control.focusPolicy() != Qt::NoFocus || qobject_cast<const QProgressBar*>(&control);
}

QString NameOf(QWidget& control) {
    // What a screen reader gets as the name of a drop-down is its choice, and its label besides.
    return qobject_cast<QComboBox*>(&control)
               ? control.accessibleName()
               : QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name);
}

bool IsDigit(const QWidget* control) {
    return std::ranges::find(kStepIconIds, control->objectName().toInt()) != std::end(kStepIconIds);
}

class Layouts : public testing::TestWithParam<int> {
protected:
    CModuleResources m_resources;
    ResourceScope m_scope{m_resources};
};

TEST_P(Layouts, KeepsEveryControlApartAndReadable) {
    const auto layout = m_resources.GetLayout(GetParam());
    ASSERT_TRUE(layout);
    std::set<int> ids;
    for (const ControlLayout& control : layout->controls)
        EXPECT_TRUE(control.id > 0 && ids.insert(control.id).second) << "id " << control.id;

    for (const int pointSize : {9, 13}) {
        QFont font = QApplication::font();
        font.setPointSize(pointSize);
        CLayoutWindow window(GetParam());
        window.setFont(font);
        ASSERT_TRUE(window.Create());
        const auto controls = window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        for (QWidget* control : controls) {
            const std::string name =
                "control " + control->objectName().toStdString() + " at " + std::to_string(pointSize) + " pt";
            EXPECT_TRUE(window.rect().contains(control->geometry())) << name;
            EXPECT_LE(NeededWidth(control), control->width()) << name;
            EXPECT_TRUE(!Speaks(*control) || !NameOf(*control).isEmpty()) << name << " has no name for a screen reader";
            for (const QWidget* other : controls) {
                const bool framed = qobject_cast<const QGroupBox*>(control) || qobject_cast<const QGroupBox*>(other);
                // The digits' fields touch; the digits in them are smaller.
                const bool digits = IsDigit(control) && IsDigit(other);
                if (other < control && !framed && !digits) {
                    EXPECT_FALSE(control->geometry().intersects(other->geometry()))
                        << name << " and " << other->objectName().toStdString();
                }
            }
        }
    }
}

// A frame stands for what belongs together: what it cuts through belongs nowhere.
TEST_P(Layouts, FramesAreApartOrInsideEachOtherAndCutNothing) {
    CLayoutWindow window(GetParam());
    ASSERT_TRUE(window.Create());
    for (const QWidget* frame : window.findChildren<QGroupBox*>()) {
        for (const QWidget* other : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (IsDigit(other)) // the digits' fields reach out of their frame, the digits in them do not
                continue;
            const QRect outer = frame->geometry(), inner = other->geometry();
            EXPECT_TRUE(!outer.intersects(inner) || outer.contains(inner) || inner.contains(outer))
                << "frame " << frame->objectName().toStdString() << " and " << other->objectName().toStdString();
        }
    }
}

TEST_P(Layouts, HasEachShortcutOnce) {
    // A tab stands on its page together with the page's own buttons.
    static const std::map<int, int> kPages = {{10062, 110}, {10063, 110}, {10056, 111}, {10057, 111}, {10058, 111}};
    std::vector<int> shown = {GetParam()};
    if (const auto page = kPages.find(GetParam()); page != kPages.end())
        shown.push_back(page->second);
    std::set<QString> keys;
    for (const int number : shown) {
        CLayoutWindow window(number);
        ASSERT_TRUE(window.Create());
        for (const CPushButton* button : window.findChildren<CPushButton*>())
            if (const QString key = button->GetMnemonic().toString(); !key.isEmpty()) {
                EXPECT_TRUE(keys.insert(key).second) << key.toStdString() << " of " << button->text().toStdString();
            }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Layouts, testing::ValuesIn(kLayouts),
                         [](const auto& layout) { return "Layout" + std::to_string(layout.param); });

TEST_F(Layouts, NamePlateRowsStandInTabOrder) {
    CLayoutWindow window(100);
    ASSERT_TRUE(window.Create());
    EXPECT_EQ(window.GetDlgItem(ValueId(9902))->accessibleName(), "Motor 1 nominal voltage");
    EXPECT_EQ(window.GetDlgItem(ValueId(9902))->property("register").toInt(), 9902);

    QStringList order;
    for (QWidget* next = window.GetDlgItem(ValueId(9901)); next && order.size() < 16; next = next->nextInFocusChain())
        if (next->focusPolicy() != Qt::NoFocus && next->parentWidget() == &window)
            order.append(next->objectName());
    EXPECT_EQ(order.mid(0, 10).join(' '), "29901 29902 29903 29904 22001 22002 29911 23009 23016 29910");
}

TEST_F(Layouts, PicturesHaveTheSizesThatPagesCountOn) {
    struct {
        int picture;
        QSize size;
    } const cases[] = {{86, {309, 419}},  {106, {91, 16}},   {108, {91, 16}},   {109, {91, 16}},   {10066, {54, 23}},
                       {116, {81, 23}},   {10068, {54, 23}}, {10070, {81, 23}}, {10071, {81, 23}}, {10072, {81, 23}},
                       {10073, {54, 23}}, {10074, {54, 23}}, {10075, {54, 23}}};
    for (const auto& [picture, size] : cases) {
        EXPECT_EQ(m_resources.GetPicture(picture, {}, 1.0).size(), size) << picture;
        EXPECT_EQ(m_resources.GetPicture(picture, {}, 2.0).deviceIndependentSize(), QSizeF(size)) << picture;
    }
    for (const int picture : {10020, 10021, 10022, 10023, 10024, 10025, 10026, 10031, 10032, 10034, 10046, 10047})
        EXPECT_FALSE(m_resources.GetPicture(picture, {}, 1.0).isNull()) << picture;
    EXPECT_TRUE(m_resources.GetPicture(1, {}, 1.0).isNull());
}

} // namespace
} // namespace krt550
