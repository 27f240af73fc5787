// Step 2 and the I/O assistant on the parameters and texts that are shipped.
#include "tests/assistants/tuning_fixture.h"
#include "tests/support/shipped_drive.h"

#include "wizard/platform/row_ids.h"
#include "wizard/resources/control_ids.h"
#include "wizard/resources/terminal_overview.h"
#include "wizard/shell/color_static.h"

namespace krt550 {
namespace {

using enum TerminalKind;

constexpr int kMacro = ValueId(9908);
const QString kRefused = "The macro was not loaded: the drive is switched on, or the motor may turn.*";

class MacroDrive : public FakeDrive {
public:
    MacroDrive() : FakeDrive(ShippedParameters()) {
        for (int input = 1; input <= 8; ++input)
            words[quint16(1024 + input)] = 0;
        words[801] = 1;
        words[9908] = 0;
    }
};

class MacroAssistant : public TuningFixture<MacroDrive> {
protected:
    MacroAssistant() : TuningFixture(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550Wizard.so")) {
        SetStepState(2, StepState::NotChosen);
    }
    void OpenMacro(const std::function<void()>& script) { OnPage(164, script); }
    void OpenTerminals(const std::function<void()>& script) { OnPage(171, script); }

    static QString Connection(TerminalKind kind, int number) { return Robot::Text(ConnectionTextId(kind, number)); }
    static bool IsInverted(TerminalKind kind, int number) {
        auto* name = qobject_cast<CColorStatic*>(Robot::Control(TerminalNameId(kind, number)));
        return name && name->GetColors().behindText == QColor(Qt::black) && name->toolTip().contains("inverted");
    }
    static bool IsAllUnknown() {
        return std::ranges::all_of(kTerminalKinds, [](TerminalKind kind) {
            for (int number = 1; number <= TerminalCount(kind); ++number)
                if (Connection(kind, number) != "?")
                    return false;
            return !Robot::IsEnabled(EditParametersId(kind));
        });
    }
    static int DependentId(int position, int part) { return kIdFirstDependentRow + 10 * position + part; }
    /// Labels of the rows that can be seen, from the top.
    static QStringList ShownRows() {
        QStringList rows;
        for (int position = 0; position < kDependentRows; ++position)
            if (Robot::Find(DependentId(position, 0)))
                rows.append(Robot::Text(DependentId(position, 0)).section(' ', 0, 0));
        return rows;
    }
};

TEST_F(MacroAssistant, ReadsNoRegisterTwice) {
    const auto count = [this](const char* page) {
        QStringList reads = m_drive.TakeLog({"read "});
        std::printf("    %s: %d reads\n", page, int(reads.size()));
        EXPECT_GT(reads.size(), 50);
        reads.sort();
        for (qsizetype i = 1; i < reads.size(); ++i)
            EXPECT_NE(reads[i - 1], reads[i]) << page;
    };
    OpenMacro([&] { count("step 2"); });
    OpenTerminals([&] { count("I/O assistant"); });
}

TEST_F(MacroAssistant, ShowsWhatEveryTerminalIsConnectedTo) {
    m_drive.words[1005] = 7;
    m_drive.words[1006] = 8;
    m_drive.words[1018] = 8;
    m_drive.words[1032] = 1;
    m_drive.words[1101] = 2;
    m_drive.words[1401] = quint16(-801);
    m_drive.words[1402] = 3;
    m_drive.words[1403] = 801;
    m_drive.words[1404] = 2;
    m_drive.words[1501] = 104;
    m_drive.words[1506] = 9999;
    m_drive.unreadable = {1405};
    for (const int page : {101, 134}) {
        m_boxes.Expect("Reading parameter 14.05 DO3 index failed: simulated failure");
        OnPage(page == 101 ? 164 : 171, [&] {
            EXPECT_EQ(Connection(DigitalInput, 4), "-");
            EXPECT_EQ(Connection(DigitalInput, 7), "On / start button");
            EXPECT_EQ(Connection(DigitalInput, 8), "Multiple connections");
            EXPECT_TRUE(IsInverted(DigitalInput, 8) && !IsInverted(DigitalInput, 7));
            EXPECT_EQ(Connection(AnalogueInput, 2), "Reference 1");
            EXPECT_EQ(Connection(DigitalOutput, 1), "Fault");
            EXPECT_TRUE(IsInverted(DigitalOutput, 1) && !IsInverted(DigitalOutput, 2));
            EXPECT_EQ(Connection(DigitalOutput, 2), "Running");
            EXPECT_EQ(Connection(DigitalOutput, 3), "?");
            EXPECT_EQ(Connection(AnalogueOutput, 1), "Speed actual");
            EXPECT_EQ(Connection(AnalogueOutput, 2), "Other (9999)");
            EXPECT_EQ(Robot::Find(kIdNoteAttention) != nullptr, page == 101);
        });
    }
}

TEST_F(MacroAssistant, LoadsAMacroWithApplyAndNotBefore) {
    OpenMacro([&] {
        const QString before = Connection(DigitalInput, 8);
        Robot::Choose(kMacro, "Jogging");
        EXPECT_TRUE(Robot::Text(kIdMacroDescription).contains("jog speeds"));
        EXPECT_TRUE(IsAllUnknown());
        Robot::Press(kIdMacroView);
        EXPECT_EQ(ShownRows(), (QStringList{"?", "?", "?", "?", "?", "?"}));
        Robot::Choose(kMacro, "Standard");
        EXPECT_EQ(Connection(DigitalInput, 8), before) << "the drive's own macro again";
        EXPECT_EQ(ShownRows(), (QStringList{"1101", "1109", "2201", "2202", "2102", "2103"}));
        // A value list has its drop-down, anything else its edit, each with a name.
        EXPECT_EQ(Robot::Control(DependentId(0, 5))->accessibleName(), "1101 Reference 1 selector");
        EXPECT_EQ(Robot::Control(DependentId(2, 1))->property("register").toInt(), 2201);
        EXPECT_FALSE(Robot::Find(DependentId(0, 1)) || Robot::Find(DependentId(2, 5)));
        m_drive.TakeLog();
        Robot::Press(kIdApply);
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList()) << "nothing was chosen";

        Robot::Choose(kMacro, "Jogging");
        m_drive.TakeLog();
        m_drive.onCall = [this](const QString& call) {
            if (call == "write 9907=1")
                m_drive.words[1010] = 1, m_drive.words[1015] = 0;
        };
        Robot::Press(kIdApply);
        EXPECT_EQ(m_drive.TakeLog({"write", "refresh", "read 801"}),
                  (QStringList{"refresh", "read 801", "write 9908=4", "write 9907=1"}));
        EXPECT_EQ(Connection(DigitalInput, 1), "Jog 1");
        EXPECT_EQ(ShownRows(), (QStringList{"1208", "1209", "2208", "2209", "2201", "2202"}));
        EXPECT_TRUE(Robot::IsEnabled(EditParametersId(DigitalInput)));
        Robot::Press(kIdApply);
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList());
        Robot::Press(kIdMacroView);
        EXPECT_EQ(ShownRows(), QStringList()) << "in the advanced view only";
        Robot::Press(kIdMacroView);
        // What was typed for a macro is for that macro.
        Robot::Type(DependentId(0, 1), "150");
        Robot::Choose(kMacro, "Fieldbus control");
        Robot::Press(kIdNext);
        EXPECT_EQ(m_drive.TakeLog({"write"}), (QStringList{"write 9908=7", "write 9907=1"}));
        EXPECT_EQ(GetStepState(2), StepState::Done);
    });
}

TEST_F(MacroAssistant, LoadsNoMacroWhileTheMotorMayTurn) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"turns", [this] { m_drive.statusWord = 0; }},
        {"ready to operate", [this] { m_drive.words[801] = 3; }},
        {"running", [this] { m_drive.words[801] = 7; }},
        {"state unknown", [this] { m_drive.fails = [](const QString& call) { return call == "refresh"; }; }},
        {"status unknown", [this] { m_drive.fails = [](const QString& call) { return call == "read 801"; }; }},
    };
    OpenMacro([&] {
        for (const auto& [name, happen] : cases) {
            SCOPED_TRACE(name);
            Robot::Choose(kMacro, "Jogging");
            happen();
            m_drive.TakeLog();
            m_boxes.Expect(kRefused).WithIcon(QMessageBox::Critical);
            if (QLatin1String(name) == QLatin1String("status unknown"))
                m_boxes.Expect("Reading parameter 8.01 Main status word failed: simulated failure");
            Robot::Press(kIdNext);
            EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList());
            EXPECT_EQ(Robot::Layout(), 101);
            m_drive.fails = nullptr;
            m_drive.statusWord = kStatusStopped;
            m_drive.words[801] = 1;
            Robot::Choose(kMacro, "Standard");
        }
        m_boxes.Verify();
    });
}

// That 99.08 names no macro that is not loaded is the fault matrix's, too.
TEST_F(MacroAssistant, TriesAgainWhatCouldNotBeLoaded) {
    OpenMacro([&] {
        Robot::Choose(kMacro, "Jogging");
        m_drive.unwritable = {9907};
        m_drive.TakeLog();
        m_boxes.Expect("Writing parameter 99.07*");
        Robot::Press(kIdNext);
        m_boxes.Verify();
        EXPECT_EQ(m_drive.TakeLog({"write"}), (QStringList{"write 9908=4", "write 9907=1", "write 9908=0"}));
        EXPECT_TRUE(Robot::Text(kMacro) == "Jogging" && IsAllUnknown());
        m_drive.unwritable.clear();
        Robot::Press(kIdNext);
        EXPECT_EQ(m_drive.TakeLog({"write"}), (QStringList{"write 9908=4", "write 9907=1"}));
    });
}

TEST_F(MacroAssistant, TheTerminalsAloneAreChangedInTheirDialogsOnly) {
    OpenTerminals([&] {
        m_drive.TakeLog();
        m_drive.words[1005] = 4;
        Robot::Press(kIdApply);
        EXPECT_EQ(m_drive.TakeLog({"write"}), QStringList());
        EXPECT_EQ(Connection(DigitalInput, 4), "On / start button") << "as it is now";
        m_drive.hasRoot = false;
        for (const TerminalKind kind : kTerminalKinds)
            Robot::Press(EditParametersId(kind));
        EXPECT_EQ(Robot::Layout(), 134) << "without parameters there is nothing to edit";
        m_drive.hasRoot = true;
        Robot::Press(kIdNext);
        EXPECT_EQ(Robot::Layout(), 107);
    });
}

} // namespace
} // namespace krt550
