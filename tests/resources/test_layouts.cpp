// Every layout as it is drawn: nothing clipped, nothing overlapping, nothing outside, every id once.
#include "tests/support/shipped_drive.h"
#include "tests/support/test_window.h"
#include "wizard/platform/control_text.h"
#include "wizard/platform/dialog_layout.h"
#include "wizard/platform/push_button.h"
#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/module_resources.h"
#include "wizard/resources/page_rows.h"
#include "wizard/resources/svg_image.h"
#include "wizard/resources/terminal_overview.h"
#include "wizard/texts/wizard_directory.h"
#include "wizard/texts/wizard_text_store.h"

namespace krt550 {
namespace {

constexpr int kLayouts[] = {59,  100, 101, 103, 104,  107,  110,   111,   112,   122,   133,   134,
                            135, 136, 137, 138, 139,  140,  141,   142,   143,   144,   145,   146,
                            147, 148, 149, 150, 7118, 7119, 10000, 10056, 10057, 10058, 10062, 10063};

/// A control that a page makes itself draws a picture and no text.
class CLayoutWindow : public CTestWindow {
public:
    explicit CLayoutWindow(int number)
        : CTestWindow(number, [](const ControlLayout& control, QWidget* parent) {
              return control.kind == ControlKind::Custom ? new QWidget(parent) : nullptr;
          }) {}
};

/// Room that a control's text needs; nothing for controls whose text may scroll or wrap.
int NeededWidth(const QWidget* control) {
    if (const auto* label = qobject_cast<const QLabel*>(control); label && !label->wordWrap())
        return label->fontMetrics().horizontalAdvance(label->text());
    // The style has its own ideas of how wide a button is at least.
    if (const auto* button = qobject_cast<const QPushButton*>(control))
        return button->fontMetrics().horizontalAdvance(button->text()) +
               2 * button->style()->pixelMetric(QStyle::PM_ButtonMargin);
    if (const auto* button = qobject_cast<const QAbstractButton*>(control); button && !button->text().isEmpty())
        return button->sizeHint().width();
    if (const auto* group = qobject_cast<const QGroupBox*>(control))
        return group->fontMetrics().horizontalAdvance(group->title());
    return 0;
}

/// The drive's names of its parameters.
const std::map<quint16, QString>& DriveNames() {
    static const std::map<quint16, QString> names = [] {
        std::map<quint16, QString> read;
        for (const ParameterDescription& parameter : ShippedParameters())
            read[parameter.reg] = parameter.name;
        return read;
    }();
    return names;
}

/// What a row shows as the name of its parameter.
QString ShownName(const RowDef& row) {
    if (*row.caption)
        return QString::fromLatin1(row.caption);
    const quint16 reg = row.reg;
    const QString own = CWizardTextStore::Instance().GetParameterName(reg);
    const auto name = DriveNames().find(reg);
    return !own.isEmpty() || name == DriveNames().end() ? own : name->second;
}

struct LayoutRow {
    int layout;
    RowDef row;
};

/// The rows of a layout, from top to bottom; of all layouts for 0.
std::vector<LayoutRow> RowsOf(int layout) {
    std::vector<LayoutRow> rows;
    for (const PageRows* table : kAllPageRows)
        for (const RowGroupDef& group : table->groups)
            for (const RowDef& row : group.rows)
                if (layout == 0 || layout == table->layout)
                    rows.push_back({table->layout, row});
    return rows;
}

/// Registers of the rows that depend on the macro.
QStringList DependentRegisters() {
    QStringList all, registers;
    for (quint16 macro = 0; macro < 20; ++macro)
        if (CWizardTextStore::Instance().GetMacroDependentRegisters(macro, registers))
            all += registers;
    return all;
}

void ShowLongest(QWidget* control, const QStringList& texts) {
    if (control)
        SetControlText(control, *std::ranges::max_element(texts, {}, [control](const QString& text) {
                           return control->fontMetrics().horizontalAdvance(text);
                       }));
}

/// Shows the longest names that the terminals can have.
void NameTerminals(const CTestWindow& window) {
    CWizardTextStore& texts = CWizardTextStore::Instance();
    QStringList names[] = {{}, texts.GetDOList().texts, {}, texts.GetAOList().texts};
    for (const auto& [kind, table] : {std::pair{TerminalKind::DigitalInput, &texts.GetDIConnections()},
                                      {TerminalKind::AnalogueInput, &texts.GetAIConnections()}})
        for (const quint16 selector : table->Selectors())
            for (const int entry : table->EntriesOf(selector))
                names[int(kind)].append((*table)[entry].name);
    for (const TerminalKind kind : kTerminalKinds)
        for (int number = 1; number <= TerminalCount(kind); ++number)
            ShowLongest(window.GetDlgItem(ConnectionTextId(kind, number)), names[int(kind)]);
}

/// Fills the labels of the rows as a load does.
void NameRows(const CTestWindow& window, int number) {
    SetWizardDirectory(QStringLiteral(KRT550_SOURCE_DIR "/data"));
    for (const auto& [layout, row] : RowsOf(number)) {
        QStringList texts;
        if (row.reg == 0 && layout != kMacroRows.layout) // what stands in a text file
            texts.append(QStringLiteral("2201 Acceleration time"));
        else
            for (const QString& reg : row.reg == 0 ? DependentRegisters() : QStringList(QString::number(row.reg))) {
                RowDef shown = row;
                shown.reg = reg.toUShort();
                texts.append((row.numbered ? reg + ' ' : QString()) + ShownName(shown));
            }
        ShowLongest(window.GetDlgItem(IdsOf(row).label), texts);
    }
    NameTerminals(window);
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

/// Parts of one row of which the program shows either the drop-down or all the others.
bool AreOfOneRow(const CTestWindow& window, int number, const QWidget* one, const QWidget* other) {
    return std::ranges::any_of(RowsOf(number), [&](const LayoutRow& row) {
        const RowIds ids = IdsOf(row.row);
        const QWidget* list = ids.list != 0 ? window.GetDlgItem(ids.list) : nullptr;
        const auto isPart = [&](const QWidget* control) {
            return std::ranges::any_of(std::initializer_list<int>{ids.value, ids.unit, ids.minimum, ids.maximum},
                                       [&](int id) { return window.GetDlgItem(id) == control; });
        };
        return list && ((one == list && isPart(other)) || (other == list && isPart(one)));
    });
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
        window.Widget().setFont(font);
        ASSERT_TRUE(window.Create());
        NameRows(window, GetParam());
        const auto controls = window.Widget().findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        for (QWidget* control : controls) {
            const std::string name =
                "control " + control->objectName().toStdString() + " at " + std::to_string(pointSize) + " pt";
            EXPECT_TRUE(window.Widget().rect().contains(control->geometry())) << name;
            EXPECT_LE(NeededWidth(control), control->width()) << name;
            EXPECT_TRUE(!Speaks(*control) || !NameOf(*control).isEmpty()) << name << " has no name for a screen reader";
            for (const QWidget* other : controls) {
                const bool framed = qobject_cast<const QGroupBox*>(control) || qobject_cast<const QGroupBox*>(other);
                const QRect one = control->geometry(), two = other->geometry();
                // A frame stands for what belongs together: what it cuts through belongs nowhere. The digits' fields
                // reach out of their frame, the digits in them do not.
                EXPECT_TRUE(!framed || IsDigit(control) || IsDigit(other) || !one.intersects(two) ||
                            one.contains(two) || two.contains(one))
                    << name << " and " << other->objectName().toStdString();
                // The digits' fields touch; the digits in them are smaller.
                const bool digits = IsDigit(control) && IsDigit(other);
                // A drop-down and the edits in its place.
                const bool views = qobject_cast<const QLineEdit*>(control) && qobject_cast<const QComboBox*>(other);
                const bool viewsOther =
                    qobject_cast<const QComboBox*>(control) && qobject_cast<const QLineEdit*>(other);
                if (other < control && !framed && !digits && !views && !viewsOther &&
                    !AreOfOneRow(window, GetParam(), control, other)) {
                    EXPECT_FALSE(one.intersects(two)) << name << " and " << other->objectName().toStdString();
                }
            }
        }
    }
}

TEST_P(Layouts, HasEachShortcutOnce) {
    // A tab stands on its page together with the page's own buttons.
    static const std::map<int, int> kPages = {{10062, 110}, {10063, 110}, {10056, 111}, {10057, 111},
                                              {10058, 111}, {144, 133},   {145, 133},   {149, 139},
                                              {150, 139},   {7118, 146},  {7119, 146},  {148, 138}};
    std::vector<int> shown = {GetParam()};
    if (const auto page = kPages.find(GetParam()); page != kPages.end())
        shown.push_back(page->second);
    std::set<QString> keys;
    for (const int number : shown) {
        CLayoutWindow window(number);
        ASSERT_TRUE(window.Create());
        for (const CPushButton* button : window.Widget().findChildren<CPushButton*>())
            if (const QString key = button->GetMnemonic().toString(); !key.isEmpty()) {
                EXPECT_TRUE(keys.insert(key).second) << key.toStdString() << " of " << button->text().toStdString();
            }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Layouts, testing::ValuesIn(kLayouts),
                         [](const auto& layout) { return "Layout" + std::to_string(layout.param); });

// Tests, plays and screen readers count on these.
TEST_P(Layouts, NamesItsRowsForScreenReadersAndHasThemInTabOrder) {
    CLayoutWindow window(GetParam());
    ASSERT_TRUE(window.Create());
    QStringList expected;
    for (const auto& [layout, row] : RowsOf(GetParam())) {
        const auto* label = window.GetControl<QLabel>(IdsOf(row).label);
        QWidget* value = window.GetDlgItem(IdsOf(row).value);
        ASSERT_TRUE(label && value) << row.reg;
        EXPECT_EQ(value->property("register").toInt(), row.reg);
        if (row.kind == RowKind::Display)
            continue;
        EXPECT_EQ(label->buddy(), value);
        EXPECT_EQ(value->accessibleName(), label->text());
        expected.append(value->objectName());
    }
    QStringList order;
    for (QWidget* next = window.Widget().nextInFocusChain(); next != &window.Widget(); next = next->nextInFocusChain())
        if (expected.contains(next->objectName()))
            order.append(next->objectName());
    EXPECT_EQ(order, expected);
}

// A control of a row that no table has would stay empty for ever.
TEST_P(Layouts, HasNoRowThatNoTableBinds) {
    std::set<int> bound;
    for (const auto& [layout, row] : RowsOf(GetParam()))
        bound.insert(row.reg);
    for (const PageRows* table : kAllPageRows)
        if (table->layout == GetParam())
            bound.insert(table->others.begin(), table->others.end());
    const auto description = m_resources.GetLayout(GetParam());
    ASSERT_TRUE(description);
    for (const ControlLayout& control : description->controls) {
        const bool byRegister = control.id >= 10000 && control.id < 60000;
        EXPECT_TRUE(control.reg == 0 || bound.contains(control.reg)) << control.reg;
        EXPECT_TRUE(!byRegister || bound.contains(control.id % 10000)) << "control " << control.id;
    }
}

// That every register has a name and a tool tip, and only one, is seen where the shipped texts are.
TEST_F(Layouts, LabelsAreTheNamesThatTheirRowsShow) {
    SetWizardDirectory(QStringLiteral(KRT550_SOURCE_DIR "/data"));
    for (const QString& reg : DependentRegisters())
        EXPECT_NE(CWizardTextStore::Instance().GetToolTip(reg.toUShort()), "") << reg.toStdString();
    for (const auto& [layout, row] : RowsOf(0))
        EXPECT_TRUE(row.reg == 0 || !*row.label || row.label == ShownName(row)) << row.label << " in " << layout;
}

TEST_F(Layouts, HaveAllPicturesThatPagesCountOn) {
    for (const int picture :
         {86,    106,   108,   109,   116,   10012, 10013, 10015, 10016, 10017, 10018, 10019, 10020, 10021, 10022,
          10023, 10024, 10025, 10026, 10027, 10028, 10029, 10030, 10031, 10032, 10034, 10035, 10036, 10037, 10038,
          10039, 10046, 10047, 10049, 10050, 10051, 10054, 10066, 10068, 10070, 10071, 10072, 10073, 10074, 10075})
        EXPECT_FALSE(m_resources.GetPicture(picture, {}, 1.0).isNull()) << picture;
    EXPECT_TRUE(m_resources.GetPicture(1, {}, 1.0).isNull());
}

// Some are drawn when the module is built: they are what would be drawn now, in sizes that are near enough.
TEST_F(Layouts, PicturesAreSharpInEverySize) {
    const struct {
        int picture;
        QSize size;
        qreal ratio;
        QSize drawn; ///< in device-independent pixels
    } cases[] = {{86, {}, 1, {}},
                 {86, {}, 1.5, {}},
                 {106, {}, 2, {}},
                 {86, {}, 1.25, {}},
                 {86, {326, 423}, 1, {309, 419}},
                 {86, {326, 423}, 2, {309, 419}},
                 {86, {300, 900}, 1, {}},
                 {86, {800, 1000}, 1, {}}};
    for (const auto& c : cases) {
        const QString file = QStringLiteral(":/krt550/pictures/%1.svg").arg(c.picture);
        const QImage shown = m_resources.GetPicture(c.picture, c.size, c.ratio).toImage();
        const QImage drawn = DrawSvg(file, c.drawn.isEmpty() ? c.size : c.drawn, c.ratio);
        EXPECT_EQ(shown.size(), drawn.size()) << c.picture << " x " << c.ratio;
        EXPECT_TRUE(shown.convertToFormat(drawn.format()) == drawn) << c.picture << " x " << c.ratio;
    }
}

} // namespace
} // namespace krt550
