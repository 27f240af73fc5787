#include "host/play/parser.h"
#include "host/play/words.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace krt550 {
namespace {

std::optional<PlayScript> Read(const char* text, QStringList& errors) {
    QByteArray bytes(text);
    QBuffer input(&bytes);
    input.open(QIODevice::ReadOnly);
    return ReadPlay(input, QStringLiteral("dir/a.play"), errors);
}

TEST(PlayWords, KeepQuotedTextsAndDropComments) {
    const struct {
        const char* line;
        QStringList words;
    } cases[] = {
        {"press next", {"press", "next"}},
        {"  set\t9902   440 # volts", {"set", "9902", "440"}},
        {"expect box \"a # b\"", {"expect", "box", "a # b"}},
        {"say a#b", {"say", "a#b"}},
        {R"(say "a \"quoted\" \\ word\nand a line")", {"say", "a \"quoted\" \\ word\nand a line"}},
        {"set 9902 \"\"", {"set", "9902", ""}},
        {"# nothing", {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SplitWords(QString::fromUtf8(c.line)), c.words) << c.line;
}

TEST(PlayParser, ReadsTheArgumentsOfActions) {
    const struct {
        const char* line;
        Verb verb;
        int number;
        bool byRegister;
        const char* text;
    } cases[] = {
        {"start", Verb::Start, 0, false, ""},
        {"tick 16", Verb::Tick, 16, false, ""},
        {"press next", Verb::Press, 95, false, ""},
        {"press cancel", Verb::Press, 91, false, ""},
        {"press 170", Verb::Press, 170, false, ""},
        {"set 9902 44.5", Verb::Set, 9902, true, "44.5"},
        {"choose 9901 Two words", Verb::Choose, 9901, true, "Two words"},
        {"choose id:201 \"Two  blanks\"", Verb::Choose, 201, false, "Two  blanks"},
        {"key apply Ctrl+Enter", Verb::Key, 98, false, "Ctrl+Enter"},
        {"drive 801 1", Verb::Drive, 801, true, "1"},
        {"clear log", Verb::ClearLog, 0, false, "log"},
        {"close", Verb::Close, 0, false, ""},
        {"close window \"A help\"", Verb::Close, 0, false, "A help"},
    };
    for (const auto& c : cases) {
        QStringList errors;
        const auto script = Read(c.line, errors);
        ASSERT_TRUE(script) << c.line << ": " << errors.join(QLatin1Char(' ')).toStdString();
        const PlayAction& action = script->actions.at(0);
        EXPECT_EQ(action.verb, c.verb) << c.line;
        EXPECT_EQ(action.arguments.number, c.number) << c.line;
        EXPECT_EQ(action.arguments.byRegister, c.byRegister) << c.line;
        EXPECT_EQ(action.arguments.text, QString::fromUtf8(c.text)) << c.line;
    }
}

TEST(PlayParser, ReadsConditions) {
    const struct {
        const char* line;
        ConditionKind kind;
        bool negated;
        int number;
        const char* text;
        double within;
    } cases[] = {
        {"wait idle", ConditionKind::Idle, false, 0, "", 60},
        {"wait box within 120", ConditionKind::Box, false, 0, "", 120},
        {"wait progress 40", ConditionKind::Progress, false, 40, "", 60},
        {"wait 2.5", ConditionKind::Seconds, false, 0, "", 62.5},
        {"wait value 103 within reach within 5", ConditionKind::Value, false, 103, "within reach", 5},
        {"expect no box", ConditionKind::Box, true, 0, "", 60},
        {"expect disabled next", ConditionKind::Disabled, false, 95, "", 60},
        {"expect calls 0 WriteWord", ConditionKind::Calls, false, 0, "WriteWord", 60},
        {"expect title no", ConditionKind::Title, false, 0, "no", 60},
    };
    for (const auto& c : cases) {
        QStringList errors;
        const auto script = Read(c.line, errors);
        ASSERT_TRUE(script) << c.line << ": " << errors.join(QLatin1Char(' ')).toStdString();
        const PlayAction& action = script->actions.at(0);
        EXPECT_EQ(action.condition.kind, c.kind) << c.line;
        EXPECT_EQ(action.condition.negated, c.negated) << c.line;
        EXPECT_EQ(action.condition.arguments.number, c.number) << c.line;
        EXPECT_EQ(action.condition.arguments.text, QString::fromUtf8(c.text)) << c.line;
        EXPECT_EQ(action.withinSeconds, c.within) << c.line;
    }
}

TEST(PlayParser, SaysWhatIsWrongWithALine) {
    const struct {
        const char* line;
        const char* complaint;
    } cases[] = {
        {"jump", "there is no action \"jump\""},
        {"start now", "\"now\" is too much"},
        {"press", "something is missing at the end; it goes: press CONTROL"},
        {"press sideways", "\"sideways\" is not a control id"},
        {"press -3", "\"-3\" is not a control id"},
        {"tick 17", "not a page from 1 to 16"},
        {"tick 0", "not a page from 1 to 16"},
        {"set 9902", "something is missing"},
        {"set volts 3", "\"volts\" is not a register"},
        {"set 70000 3", "\"70000\" is not a register"},
        {"choose id:x y", "\"x\" is not a control id"},
        {"answer perhaps", "not ok, cancel, yes or no"},
        {"key 95 Foo", "\"Foo\" is not a key"},
        {"wait", "nothing to expect"},
        {"wait long", "\"long\" is nothing that can be waited for"},
        {"wait 0", "\"0\" is nothing that can be waited for"},
        {"wait box within soon", "\"soon\" is not a number of seconds"},
        {"wait progress 101", "not a number from 0 to 100"},
        {"expect idle", "\"idle\" is nothing that can be expected"},
        {"expect no title x", "\"no title\" is not possible"},
        {"expect text next", "something is missing"},
        {"clear screen", "only the log"},
        {"close it", "\"it\" is too much"},
        {"say \"open", "a quotation mark has no partner"},
    };
    for (const auto& c : cases) {
        QStringList errors;
        EXPECT_FALSE(Read(c.line, errors)) << c.line;
        ASSERT_EQ(errors.size(), 1) << c.line;
        EXPECT_TRUE(errors[0].startsWith(QLatin1String("dir/a.play:1: "))) << errors[0].toStdString();
        EXPECT_TRUE(errors[0].contains(QString::fromUtf8(c.complaint))) << errors[0].toStdString();
    }
}

TEST(PlayParser, ReportsEveryBadLine) {
    QStringList errors;
    EXPECT_FALSE(Read("start\njump\n\n# fine\npress next\nhop\n", errors));
    ASSERT_EQ(errors.size(), 2);
    EXPECT_TRUE(errors[0].startsWith(QLatin1String("dir/a.play:2: ")));
    EXPECT_TRUE(errors[1].startsWith(QLatin1String("dir/a.play:6: ")));
}

} // namespace
} // namespace krt550
