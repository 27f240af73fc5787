#include "wizard/resources/terminal_overview.h"

#include "wizard/resources/layout_parts.h"

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kLeft = 7;
constexpr int kWidth = 244;
constexpr int kColumnGap = 3;
constexpr int kGroupGap = 2;
constexpr int kFrameTop = 11;
constexpr int kFrameBottom = 2;
constexpr int kTextHeight = 9;
constexpr int kMargin = 5;
constexpr int kTerminalWidth = 25;
constexpr int kNameWidth = 17;

struct Line {
    const char* board; ///< on which the terminals are, above the line; the first one shares its line with the legend
    const char* terminals[2];
};

/// A picture and the lines beside it.
struct Block {
    int picture;
    int lines;
};

struct Group {
    TerminalKind kind;
    const char16_t* caption;
    const char16_t* prefix; ///< of the terminals' names
    std::vector<Line> lines;
    std::vector<Block> blocks;
};

const char* const kControlBoard = "KRB-CTRL:";
const char* const kPowerBoard = "KRB-PWR:";

const std::vector<Group>& Groups() {
    static const std::vector<Group> groups = {
        {TerminalKind::DigitalInput,
         u"Standard digital inputs",
         u"DI",
         {{kControlBoard, {"X6.1:"}},
          {nullptr, {"X6.2:"}},
          {nullptr, {"X6.3:"}},
          {nullptr, {"X6.4:"}},
          {nullptr, {"X6.5:"}},
          {nullptr, {"X6.6:"}},
          {nullptr, {"X6.7:"}},
          {nullptr, {"X6.8:"}}},
         {{10035, 8}}},
        {TerminalKind::DigitalOutput,
         u"Standard digital outputs",
         u"DO",
         {{kControlBoard, {"X7.1:"}},
          {nullptr, {"X7.2:"}},
          {nullptr, {"X7.3:"}},
          {nullptr, {"X7.4:"}},
          {nullptr, {"X7.5:"}},
          {nullptr, {"X7.6:"}},
          {nullptr, {"X7.7:"}},
          {kPowerBoard, {"X96.1", "X96.2"}}},
         {{10036, 7}, {10037, 1}}},
        {TerminalKind::AnalogueInput,
         u"Standard analog inputs",
         u"AI",
         {{kControlBoard, {"X3.5:", "X3.6:"}},
          {nullptr, {"X3.7:", "X3.8:"}},
          {nullptr, {"X3.9:", "X3.10:"}},
          {nullptr, {"X4.1:", "X4.2:"}}},
         {{10038, 4}}},
        {TerminalKind::AnalogueOutput,
         u"Standard analog outputs",
         u"AO",
         {{kControlBoard, {"X4.7:"}}, {nullptr, {"X4.8:"}}},
         {{10039, 2}}},
    };
    return groups;
}

int HeightOf(const Group& group, const OverviewStyle& style) {
    const auto boards = std::ranges::count_if(group.lines, [](const Line& line) { return line.board != nullptr; });
    return kFrameTop + style.header + int(group.lines.size()) * style.line + (int(boards) - 1) * kTextHeight +
           kFrameBottom;
}

/// Draws one group, from top to bottom.
class CGroupDrawer {
public:
    CGroupDrawer(CLayoutBuilder& layout, const OverviewStyle& style, const Group& group, int x, int top)
        : m_layout(layout), m_style(style), m_group(group), m_x(x + kMargin), m_right(x + kWidth - kMargin),
          m_y(top + kFrameTop), m_pairs(group.lines.back().terminals[1] != nullptr) {}

    void Draw() {
        AddHeader();
        m_y += m_style.header;
        std::vector<int> tops;
        for (std::size_t line = 0; line < m_group.lines.size(); ++line) {
            if (const char* board = m_group.lines[line].board; board && line > 0) {
                AddBoard(board, kTextHeight);
                m_y += kTextHeight;
            }
            tops.push_back(m_y);
            AddLine(int(line) + 1);
            m_y += m_style.line;
        }
        AddPictures(tops);
    }

private:
    int Id(int part) const { return OverviewGroupId(m_group.kind) + part; }
    QString Name(const QString& number) const { return QString::fromUtf16(m_group.prefix) + number; }

    void AddText(int id, int x, int y, int width, int height, const QString& text) {
        m_layout.Add({.id = id, .rect = {x, y, width, height}, .text = text});
    }

    void AddBoard(const char* board, int height) {
        AddText(Id(40 + m_boards++), m_x, m_y, 46, height, QString::fromLatin1(board));
    }

    /// Board, legend and button.
    void AddHeader() {
        const int height = std::min(m_style.header, 14);
        AddBoard(m_group.lines.front().board, height);
        if (CanBeInverted(m_group.kind)) {
            const QString name = Name(QStringLiteral("x"));
            const int y = m_y + (height - kTextHeight) / 2;
            AddText(Id(4), m_x + 47, y, 49, kTextHeight, QStringLiteral("Not inverted:"));
            AddText(LegendPlainId(m_group.kind), m_x + 97, y, kNameWidth, kTextHeight, name);
            AddText(Id(6), m_x + 116, y, 35, kTextHeight, QStringLiteral("Inverted:"));
            AddText(LegendInvertedId(m_group.kind), m_x + 152, y, kNameWidth, kTextHeight, name);
        }
        constexpr int kButtonWidth = 64;
        m_layout.Add({.id = EditParametersId(m_group.kind),
                      .kind = ControlKind::PushButton,
                      .rect = {m_right - kButtonWidth, m_y, kButtonWidth, height},
                      .text = QStringLiteral("Edit parameters"),
                      .name = QString::fromUtf16(m_group.caption) + QStringLiteral(": edit parameters")});
    }

    void AddLine(int number) {
        const auto& terminals = m_group.lines[std::size_t(number) - 1].terminals;
        const int y = m_y + (m_style.line - kTextHeight) / 2;
        int x = m_x + m_style.pictures;
        for (int i = 0; i <= int(m_pairs); ++i, x += kTerminalWidth)
            if (terminals[i])
                AddText(Id(50 + 10 * i + number), x, y, kTerminalWidth, kTextHeight, QString::fromLatin1(terminals[i]));
        AddText(TerminalNameId(m_group.kind, number), x, y, kNameWidth, kTextHeight, Name(QString::number(number)));
        x += kNameWidth + 4;
        AddText(ConnectionTextId(m_group.kind, number), x, y, m_right - x, kTextHeight, QString());
    }

    void AddPictures(const std::vector<int>& tops) {
        if (m_style.pictures == 0)
            return;
        int line = 0;
        for (const Block& block : m_group.blocks) {
            m_layout.Add({.id = Id(80 + line),
                          .kind = ControlKind::Picture,
                          .rect = {m_x, tops[std::size_t(line)], m_style.pictures - 4, block.lines * m_style.line},
                          .picture = block.picture});
            line += block.lines;
        }
    }

    CLayoutBuilder& m_layout;
    const OverviewStyle& m_style;
    const Group& m_group;
    int m_x;
    int m_right;
    int m_y;
    bool m_pairs; ///< two terminals in a line, at least in one
    int m_boards = 0;
};

void AddNote(CLayoutBuilder& layout, int x, int y) {
    const struct {
        int id;
        int width;
        const char16_t* text;
        bool bold;
    } words[] = {{kIdNoteAttention, 46, u"Attention:", true},
                 {kIdNoteText, 112, u"Activate new values by pressing", false},
                 {kIdNoteApply, 22, u"Apply", false},
                 {kIdNoteOr, 11, u"or", false},
                 {kIdNoteClose, 24, u"Close", false}};
    for (const auto& word : words) {
        layout.Add({.id = word.id,
                    .rect = {x, y, word.width, kTextHeight},
                    .text = QString::fromUtf16(word.text),
                    .bold = word.bold});
        x += word.width + 1;
    }
}

} // namespace

void AddTerminalOverview(CLayoutBuilder& layout, const OverviewStyle& style) {
    int bottoms[] = {style.top, style.top}; // of the inputs' column and of the outputs'
    for (const Group& group : Groups()) {
        const bool output = group.kind == TerminalKind::DigitalOutput || group.kind == TerminalKind::AnalogueOutput;
        const int x = output ? kLeft + kWidth + kColumnGap : kLeft;
        int& y = bottoms[output ? 1 : 0];
        const int height = HeightOf(group, style);
        layout.Add({.id = OverviewGroupId(group.kind),
                    .kind = ControlKind::GroupBox,
                    .rect = {x, y, kWidth, height},
                    .text = QString::fromUtf16(group.caption)});
        CGroupDrawer(layout, style, group, x, y).Draw();
        y += height + kGroupGap;
    }
    AddNote(layout, kLeft + kWidth + kColumnGap + kMargin, bottoms[1]);
}

} // namespace krt550
