// Layout 141: the settings of the digital inputs and outputs.
#include "wizard/platform/terminal_registers.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/digital_terminals.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/page_rows.h"
#include "wizard/resources/string_table.h"

#include <array>
#include <tuple>
#include <utility>

namespace krt550 {
namespace {

// Columns; the texts of a line touch, so that its band has no gaps.
constexpr int kFrameX = 7;
constexpr int kFrameWidth = 491;
constexpr int kNameX = 13;
constexpr int kNameWidth = 28;
constexpr int kSourceX = kNameX + kNameWidth;
constexpr int kEditWidth = 44;
constexpr int kInvertX = 310;
constexpr int kInvertWidth = 72;
constexpr int kStatusX = kInvertX + kInvertWidth;
constexpr int kStatusWidth = 110;
constexpr int kGap = 3; ///< between a control that is worked with and a box
constexpr int kSourceWidth = kInvertX - kGap - kSourceX;
constexpr int kBitX = kSourceX + kSourceWidth / 2;

constexpr int kLine = 15;
constexpr int kNoteY = 12;
constexpr int kHeadingY = 22;
constexpr int kFirstLine = 33;
constexpr int kFrameHeight = kFirstLine + kDigitalTerminals * kLine + 4;
constexpr int kInputsTop = 4;
constexpr int kOutputsTop = kInputsTop + kFrameHeight + 3;
constexpr int kViewHeight = 18;
constexpr int kButtons = kOutputsTop + kFrameHeight + kViewHeight + 6;

constexpr auto kRegisters = [] {
    std::array<quint16, std::size_t{3} * kDigitalTerminals> registers{};
    auto* next = registers.begin();
    for (int number = 1; number <= kDigitalTerminals; ++number)
        for (const quint16 reg : {DIInversionRegister(number), DOIndexRegister(number), DOBitRegister(number)})
            *next++ = reg;
    return registers;
}();

QString Latin1(const char* text) {
    return QString::fromLatin1(text);
}

void AddNote(CLayoutBuilder& layout, DigitalGroup group, int y) {
    const struct {
        DigitalHeading word;
        int x;
        int width;
        const char* text;
    } kWords[] = {{kDigitalAttention, 13, 43, "Attention:"},
                  {kDigitalNote, 57, 113, "Activate new values by pressing"},
                  {kDigitalNoteApply, 171, 24, "Apply"},
                  {kDigitalNoteOr, 196, 10, "or"},
                  {kDigitalNoteClose, 207, 24, "Close"}};
    for (const auto& [word, x, width, text] : kWords)
        layout.Add({.id = DigitalId(group, word),
                    .rect = {x, y, width, 10},
                    .text = Latin1(text),
                    .bold = word == kDigitalAttention});
}

/// Adds the controls of one line.
class CLine {
public:
    CLine(CLayoutBuilder& layout, DigitalGroup group, int number, int y)
        : m_layout(layout), m_group(group), m_number(number), m_y(y),
          m_kind(Latin1(group == DigitalGroup::Inputs ? "DI" : "DO")), m_name(m_kind + QString::number(number)) {}

    void AddInput() {
        AddName();
        Add({.id = kDigitalConnection, .rect = {kSourceX, 0, kSourceWidth - kEditWidth, 0}});
        Add({.id = kDigitalEdit,
             .kind = ControlKind::PushButton,
             .rect = {kInvertX - kGap - kEditWidth, 0, kEditWidth, 0},
             .text = QStringLiteral("Edit"),
             .name = QStringLiteral("Edit the connections of ") + m_name});
        AddInvertAndStatus(DIInversionRegister(m_number));
    }

    void AddOutput() {
        const quint16 index = DOIndexRegister(m_number);
        AddName(DigitalId(m_group, m_number, kDigitalChoice)); // or nobody hears whose source a choice is
        Add({.id = kDigitalChoice,
             .kind = ControlKind::DropDown,
             .rect = {kSourceX, 0, kSourceWidth, 0},
             .reg = index});
        Add({.id = kDigitalIndex,
             .kind = ControlKind::Edit,
             .rect = {kSourceX, 0, kBitX - kSourceX, 0},
             .reg = index,
             .name = QStringLiteral("Index of ") + m_name});
        Add({.id = kDigitalBit,
             .kind = ControlKind::Edit,
             .rect = {kBitX, 0, kInvertX - kGap - kBitX, 0},
             .reg = DOBitRegister(m_number),
             .name = QStringLiteral("Bit of ") + m_name});
        AddInvertAndStatus(0);
    }

private:
    void AddName(int buddy = 0) {
        Add({.id = kDigitalName, .rect = {kNameX, 0, kNameWidth, 0}, .text = m_name, .buddy = buddy});
    }

    void AddInvertAndStatus(quint16 inversion) {
        Add({.id = kDigitalInvert,
             .kind = ControlKind::CheckBox,
             .rect = {kInvertX, 0, kInvertWidth, 0},
             .text = QStringLiteral("Invert ") + m_kind,
             .reg = inversion,
             .name = QStringLiteral("Invert ") + m_name});
        Add({.id = kDigitalStatus,
             .rect = {kStatusX, 0, kStatusWidth, 0},
             .alignment = Qt::AlignHCenter,
             .name = QStringLiteral("Status of ") + m_name});
    }

    /// A control whose id is that of its part, at its place across the line.
    void Add(ControlLayout control) {
        control.id = DigitalId(m_group, m_number, static_cast<DigitalControl>(control.id));
        control.rect.y = m_y;
        control.rect.height = kLine;
        m_layout.Add(std::move(control));
    }

    CLayoutBuilder& m_layout;
    DigitalGroup m_group;
    int m_number;
    int m_y;
    QString m_kind;
    QString m_name;
};

void AddHeadings(CLayoutBuilder& layout, DigitalGroup group, int top) {
    const bool inputs = group == DigitalGroup::Inputs;
    AddNote(layout, group, top + kNoteY);
    layout.Add({.id = DigitalId(group, kDigitalStatusHeading),
                .kind = ControlKind::WrappedText,
                .rect = {kStatusX, top + kNoteY, kStatusWidth, 20},
                .text = Latin1(inputs ? "Actual DI\nstatus at terminal" : "Actual DO\nstatus at terminal"),
                .alignment = Qt::AlignHCenter});
    if (inputs)
        return;
    for (const auto& [id, x, text] :
         {std::tuple{kDigitalIndexHeading, kSourceX, "Index"}, std::tuple{kDigitalBitHeading, kBitX, "Bit"}})
        layout.Add({.id = DigitalId(group, id), .rect = {x, top + kHeadingY, 60, 10}, .text = Latin1(text)});
}

void AddGroup(CLayoutBuilder& layout, DigitalGroup group, int top) {
    const bool inputs = group == DigitalGroup::Inputs;
    layout.Group(static_cast<int>(group), {kFrameX, top, kFrameWidth, kFrameHeight + (inputs ? 0 : kViewHeight)},
                 Latin1(inputs ? "Digital inputs" : "Digital outputs"));
    AddHeadings(layout, group, top);
    for (int number = 1; number <= kDigitalTerminals; ++number) {
        CLine line(layout, group, number, top + kFirstLine + (number - 1) * kLine);
        inputs ? line.AddInput() : line.AddOutput();
    }
    if (!inputs)
        layout.Add({.id = DigitalId(group, kDigitalView),
                    .kind = ControlKind::PushButton,
                    .rect = {kSourceX, top + kFrameHeight, 56, 14},
                    .text = StringTableText(14).value_or(QString())});
}

} // namespace

constinit const PageRows kDigitalTerminalRows{.layout = 141, .others = kRegisters};

DialogLayout DigitalTerminalsLayout() {
    CLayoutBuilder layout(141, kPageWidth, kButtons + 14 + 8, QStringLiteral("DI and DO settings"));
    AddGroup(layout, DigitalGroup::Inputs, kInputsTop);
    AddGroup(layout, DigitalGroup::Outputs, kOutputsTop);
    return layout.DialogButtons(kButtons).Take();
}

} // namespace krt550
