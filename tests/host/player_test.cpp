#include "host/play/parser.h"
#include "host/play/player.h"
#include "host/play/stage.h"
#include "tests/host/toy_wizard.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace krt550 {
namespace {

class CFakeStage : public CPlayStage {
public:
    QString ChangeDrive(quint16 reg, const QString& text) override {
        value = text;
        return reg == 102 ? QString() : QStringLiteral("the drive has no parameter %1").arg(reg);
    }
    std::optional<QString> DriveText(quint16) override { return value; }
    QString DescribeDrive(quint16) override { return QStringLiteral("Speed: ") + value; }
    QString CompareWithMotor(quint16 reg, int percent, bool& isNear) override {
        isNear = percent >= 3;
        return QStringLiteral("%1 lies 3 % away").arg(reg);
    }
    std::optional<QString> MeasureText(quint16 reg) override {
        return reg == 102 ? std::optional(QStringLiteral("1480")) : std::nullopt;
    }
    QString SwitchFault(const QString& name) override { return QStringLiteral("there is no fault ") + name; }
    const QStringList& LogLines() const override { return lines; }
    void ClearLog() override { lines.clear(); }

    QString value = QStringLiteral("0");
    QStringList lines{QStringLiteral("1\tWriteWord\t9902\t440\tok"), QStringLiteral("2\tReadWord\t9902\t440\tok")};
};

/// Outcome of a play on a toy wizard.
struct Played {
    bool well = false;
    QString printed;
    QString complaints;
    QStringList notes;
    bool open = true; ///< a window was left
};

Played Play(const QString& text, const QString& shotDirectory = QStringLiteral(".")) {
    QByteArray bytes = text.toUtf8();
    QBuffer input(&bytes);
    input.open(QIODevice::ReadOnly);
    QStringList errors;
    const auto script = ReadPlay(input, QStringLiteral("toy.play"), errors);
    Played played;
    played.complaints = errors.join(QLatin1Char('\n'));
    if (!script)
        return played;
    CFakeStage stage;
    CPlayer player(*script, stage, shotDirectory,
                   {[&](const QString& line) { played.printed += line + QLatin1Char('\n'); },
                    [&](const QString& line) { played.complaints += line + QLatin1Char('\n'); }});
    {
        CToyWizard wizard;
        player.Begin();
        wizard.exec();
        played.notes = wizard.Notes();
    }
    played.well = player.Finish();
    played.open = QApplication::activeModalWidget() != nullptr;
    return played;
}

QString OnStep(const char* rest) {
    return QStringLiteral("start\nexpect title \"Step one\"\n") + QString::fromUtf8(rest);
}

struct GoodPlay {
    const char* name;
    const char* lines;
    QStringList notes;
};

void PrintTo(const GoodPlay& play, std::ostream* out) {
    *out << play.name;
}

class GoodPlays : public testing::TestWithParam<GoodPlay> {};

TEST_P(GoodPlays, GoThroughAndReachTheControls) {
    const Played played = Play(OnStep(GetParam().lines));
    EXPECT_TRUE(played.well) << played.complaints.toStdString();
    EXPECT_EQ(played.notes, GetParam().notes) << played.notes.join(QLatin1Char('|')).toStdString();
    EXPECT_FALSE(played.open);
}

INSTANTIATE_TEST_SUITE_P(
    Player, GoodPlays,
    testing::Values(
        GoodPlay{"typing", "set 9902 44\nexpect value 9902 44\nexpect focus 201", {"changed 4", "changed 44"}},
        GoodPlay{"typingById", "set id:29902 \"\"\nexpect text 29902 \"\"", {"changed "}},
        GoodPlay{"listEntry",
                 "choose 9901 Suomi\nexpect value 9901 Suomi\nchoose 9901 English",
                 {"chose Suomi", "chose English"}},
        GoodPlay{"tabs", "tab Limits", {"tab Limits"}},
        GoodPlay{"visibleTwinOnly", "expect enabled next\npress next\nexpect hidden start\nexpect page 100", {"next"}},
        GoodPlay{"boxes",
                 "press 303\nexpect box \"Start the*\"\nanswer ok\nexpect box \"It turns\"\nanswer ok\nwait idle",
                 {"answered ok"}},
        GoodPlay{"lateBox", "press 304\nwait box\nanswer cancel\nexpect no box", {"answered cancel"}},
        GoodPlay{"answerWaitsForItsBox", "press 304\nanswer cancel", {"answered cancel"}},
        GoodPlay{"boxOnLeavingAField",
                 "set 9902 2000\nexpect box \"2000 is too much\"\nanswer ok\nexpect value 9902 2000",
                 {"changed 2", "changed 20", "changed 200", "changed 2000"}},
        GoodPlay{"procedureToItsEnd", "press 301\nwait progress 10\nwait idle\nexpect text 203 100", {"done"}},
        GoodPlay{"procedureStopped", "press 301\nwait progress 40\npress 302\nwait idle", {"stopped"}},
        GoodPlay{"procedureLeft", "press 301\nwait progress 20\nclose\nwait closed", {"left"}},
        GoodPlay{"cancel", "press cancel\nwait closed\nexpect closed", {}},
        GoodPlay{"helpIsNotInFront",
                 "press help\nexpect window \"Toy help\"\nexpect title \"Step one\"\n"
                 "close window \"Toy help\"\nexpect no window \"Toy*\"\npress next",
                 {"next"}},
        GoodPlay{"driveAndLog",
                 "drive 102 77\nexpect drive 102 77\nexpect calls 1 \"WriteWord 9902\"\n"
                 "expect no log \"WriteWord 990\"\nclear log\nexpect no log ReadWord",
                 {}},
        GoodPlay{"driveAfterTheEnd", "press cancel\nwait closed\ndrive 102 5\nexpect drive 102 5", {}},
        GoodPlay{"keys", "key 29902 End\nkey 29902 7\nexpect text 29902 3507\nwait 0.01", {"changed 3507"}}),
    [](const auto& play) { return std::string(play.param.name); });

struct BadPlay {
    const char* name;
    const char* lines;
    const char* complaint; ///< part of what is said
};

void PrintTo(const BadPlay& play, std::ostream* out) {
    *out << play.name;
}

class BadPlays : public testing::TestWithParam<BadPlay> {};

TEST_P(BadPlays, SayWhereAndWhatAndCloseEverything) {
    const Played played = Play(OnStep(GetParam().lines));
    EXPECT_FALSE(played.well);
    EXPECT_TRUE(played.complaints.startsWith(
        QStringLiteral("toy.play:%1: failed").arg(2 + QString::fromUtf8(GetParam().lines).count(QLatin1Char('\n')))))
        << played.complaints.toStdString();
    EXPECT_TRUE(played.complaints.contains(QString::fromUtf8(GetParam().complaint))) << played.complaints.toStdString();
    EXPECT_FALSE(played.notes.contains(QStringLiteral("answered ok")));
    EXPECT_FALSE(played.open);
}

// The last line of each is the one that fails.
INSTANTIATE_TEST_SUITE_P(
    Player, BadPlays,
    testing::Values(BadPlay{"wrongTitle", "expect title Menu\n", "expected: title Menu\n  there was: \"Step one\""},
                    BadPlay{"wrongValue", "expect value 9902 351\n", "there was: \"350\""},
                    BadPlay{"missingControl", "press 9999\n", "control 9999 is not on screen"},
                    BadPlay{"hiddenControl", "press 158\n", "control 158 is not on screen"},
                    BadPlay{"missingRow", "set 2001 5\n", "the row of 2001 is not on screen"},
                    BadPlay{"missingEntry", "choose 9901 Svenska\n", "\"English\", \"Deutsch\", \"Suomi\""},
                    BadPlay{"noField", "set 9901 x\n", "no field to type into"},
                    BadPlay{"lockedTab", "tab Locked\n", "tab \"Locked\" is disabled"},
                    BadPlay{"missingTab", "tab Colours\n", "no tab \"Colours\""},
                    BadPlay{"unexpectedBox", "press 303\npress next\n", "a message box \"Start the motor?\""},
                    BadPlay{"unexpectedBoxWhileWaiting", "press 304\nwait progress 90\n",
                            "a message box \"Start the motor?\""},
                    BadPlay{"unexpectedBoxAtTheEnd", "press 303\n", "a message box \"Start the motor?\""},
                    BadPlay{"otherBox", "press 303\nexpect box \"It turns\"\n", "a message box \"Start the motor?\""},
                    BadPlay{"noBox", "expect box\n", "no message box"},
                    BadPlay{"wrongAnswer", "press 303\nanswer yes\n", "no message box with such a button"},
                    BadPlay{"waitWithoutEnd", "wait progress 5 within 0.05\n", "there was: progress -1"},
                    BadPlay{"waitForNothing", "press cancel\nwait box\n", "no message box"},
                    BadPlay{"duringProcedure", "press 301\nwait progress 3\nexpect title Menu\n", "\"Step one\""},
                    BadPlay{"afterTheEnd", "press cancel\nwait closed\npress next\n", "closed already"},
                    BadPlay{"drive", "drive 103 5\n", "no parameter 103"},
                    BadPlay{"fault", "fault moon\n", "there is no fault moon"},
                    BadPlay{"calls", "expect calls 2 WriteWord\n", "1 such calls among 2"},
                    BadPlay{"picture", "shot /proc/none/x.png\n", "cannot be written"},
                    BadPlay{"window", "close window Nothing\n", "there is no window \"Nothing\""}),
    [](const auto& play) { return std::string(play.param.name); });

TEST(Player, TicksBoxesAndOpensTheAdvancedView) {
    const Played played =
        Play(QStringLiteral("expect disabled next\ntick 1\ntick 1\nexpect ticked 160\nexpect hidden 171\n"
                            "tick 8\nexpect ticked 171\nuntick 8\nexpect unticked 171\nuntick 8\n"));
    EXPECT_TRUE(played.well) << played.complaints.toStdString();
}

TEST(Player, RefusesADisabledControl) {
    const Played played = Play(QStringLiteral("press next\n"));
    EXPECT_TRUE(played.complaints.contains(QStringLiteral("control 95 (\"Next >\") is disabled")))
        << played.complaints.toStdString();
}

TEST(Player, TakesPicturesOfTheWindowInFront) {
    const QTemporaryDir directory;
    const Played played =
        Play(QStringLiteral("shot deep/menu.png\nstart\npress 303\nshot box.png\nanswer cancel\n"), directory.path());
    EXPECT_TRUE(played.well) << played.complaints.toStdString();
    const QImage menu(directory.filePath(QStringLiteral("deep/menu.png")));
    const QImage box(directory.filePath(QStringLiteral("box.png")));
    EXPECT_GE(menu.width(), 500);
    EXPECT_FALSE(box.isNull());
    EXPECT_LT(box.width(), menu.width());
}

TEST(Player, PrintsEachLineAsItIsDone) {
    const Played played = Play(QStringLiteral("# a comment\n\n  start   # go\nshow 102\nsay Well done\n"));
    EXPECT_EQ(played.printed, QStringLiteral("toy.play:3  start   # go\ntoy.play:4  show 102\n  Speed: 0\n"
                                             "toy.play:5  say Well done\n"
                                             "toy.play: the script is over, the wizard is closed\n"));
}

} // namespace
} // namespace krt550
