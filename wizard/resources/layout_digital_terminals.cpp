// Layout 141: the settings of the digital inputs and outputs.
#include "wizard/resources/control_ids.h"
#include "wizard/resources/digital_terminals.h"
#include "wizard/resources/layout_parts.h"
#include "wizard/resources/layouts.h"
#include "wizard/resources/string_table.h"

namespace krt550 {
namespace {

// Columns; those of a line touch, so that its band has no gaps.
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
constexpr int kSourceWidth = kInvertX - kSourceX;
constexpr int kBitX = kSourceX + kSourceWidth / 2;

constexpr int kLine = 15;
constexpr int kNoteY = 10;
constexpr int kHeadingY = 20;
constexpr int kFirstLine = 31;
constexpr int kFrameHeight = kFirstLine + kDigitalTerminals * kLine + 4;
constexpr int kInputsTop = 4;
constexpr int kOutputsTop = kInputsTop + kFrameHeight + 3;
constexpr int kViewHeight = 18;
constexpr int kButtons = kOutputsTop + kFrameHeight + kViewHeight + 6;

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

void AddGroup(CLayoutBuilder& layout, DigitalGroup group, int top) {
    const bool inputs = group == DigitalGroup::Inputs;
    const QString kind = Latin1(inputs ? "DI" : "DO");
    layout.Group(static_cast<int>(group), {kFrameX, top, kFrameWidth, kFrameHeight + (inputs ? 0 : kViewHeight)},
                 Latin1(inputs ? "Digital inputs" : "Digital outputs"));
    AddNote(layout, group, top + kNoteY);
    layout.Add({.id = DigitalId(group, kDigitalStatusHeading),
                .kind = ControlKind::WrappedText,
                .rect = {kStatusX, top + kNoteY, kStatusWidth, 20},
                .text = QStringLiteral("Actual %1\nstatus at terminal").arg(kind),
                .alignment = Qt::AlignHCenter});
    if (!inputs) {
        const auto heading = [&](DigitalHeading id, int x, const char* text) {
            layout.Add({.id = DigitalId(group, id), .rect = {x, top + kHeadingY, 60, 10}, .text = Latin1(text)});
        };
        heading(kDigitalIndexHeading, kSourceX, "Index");
        heading(kDigitalBitHeading, kBitX, "Bit");
    }
    for (int number = 1; number <= kDigitalTerminals; ++number) {
        const int y = top + kFirstLine + (number - 1) * kLine;
        const QString name = kind + QString::number(number);
        const auto add = [&](DigitalControl control, ControlKind controlKind, int x, int width, const QString& text,
                             const QString& spoken = {}, Qt::Alignment alignment = {}) {
            layout.Add({.id = DigitalId(group, number, control),
                        .kind = controlKind,
                        .rect = {x, y, width, kLine},
                        .text = text,
                        .alignment = alignment,
                        .name = spoken});
        };
        add(kDigitalName, ControlKind::Label, kNameX, kNameWidth, name);
        if (inputs) {
            add(kDigitalConnection, ControlKind::Label, kSourceX, kSourceWidth - kEditWidth, {});
            add(kDigitalEdit, ControlKind::PushButton, kInvertX - kEditWidth, kEditWidth, QStringLiteral("Edit"),
                QStringLiteral("Edit the connections of ") + name);
        } else {
            add(kDigitalChoice, ControlKind::DropDown, kSourceX, kSourceWidth, {}, QStringLiteral("Source of ") + name);
            add(kDigitalIndex, ControlKind::Edit, kSourceX, kBitX - kSourceX, {}, QStringLiteral("Index of ") + name);
            add(kDigitalBit, ControlKind::Edit, kBitX, kInvertX - kBitX, {}, QStringLiteral("Bit of ") + name);
        }
        add(kDigitalInvert, ControlKind::CheckBox, kInvertX, kInvertWidth, QStringLiteral("Invert ") + kind,
            QStringLiteral("Invert ") + name);
        add(kDigitalStatus, ControlKind::Label, kStatusX, kStatusWidth, {}, QStringLiteral("Status of ") + name,
            Qt::AlignHCenter);
    }
    if (!inputs)
        layout.Add({.id = DigitalId(group, kDigitalView),
                    .kind = ControlKind::PushButton,
                    .rect = {kSourceX, top + kFrameHeight, 56, 14},
                    .text = StringTableText(14).value_or(QString())});
}

} // namespace

DialogLayout DigitalTerminalsLayout() {
    CLayoutBuilder layout(141, kPageWidth, kButtons + 14 + 8, QStringLiteral("DI and DO settings"));
    AddGroup(layout, DigitalGroup::Inputs, kInputsTop);
    AddGroup(layout, DigitalGroup::Outputs, kOutputsTop);
    return layout.DialogButtons(kButtons).Take();
}

} // namespace krt550
