// Plays on the real module, by the real program.
#include "tests/host/tool_run.h"

namespace krt550 {
namespace {

TEST(Player, DoesAndFindsWhatItsWordsSay) {
    ToolRun tool;
    const int status =
        tool.Play(QStringLiteral("# a comment\n\n"
                                 "  expect disabled next # nothing is ticked\n"
                                 "expect hidden 171\n"
                                 "tick 1\ntick 1\nexpect ticked 160\n"
                                 "tick 8\nexpect ticked 171\nuntick 8\nuntick 8\nexpect unticked 171\n"
                                 "shot deep/menu.png\n"
                                 "press next\nwait idle\nexpect page 100\n"
                                 "set id:29902 \"\"\nexpect box\nshot box.png\nanswer ok\n"
                                 "set 9902 44\nexpect value 9902 44\nexpect text 29902 44\n"
                                 "key 29902 End\nkey 29902 7\nexpect focus 29902\nexpect value 9902 447\n"
                                 "choose 9901 Deutsch\nexpect value 9901 Deutsch\n"
                                 "expect drive 9902 240\nclear log\npress apply\n"
                                 "expect calls 2 WriteWord\nexpect calls 1 \"WriteWord 9902 447\"\n"
                                 "clear log\nexpect no log WriteWord\nshow 9902\n"
                                 "press help\nexpect window \"1. Name plate data\"\nexpect page 100\n"
                                 "close window \"1. Name plate data\"\nexpect no window \"1. Name plate data\"\n"
                                 "press cancel\nexpect page 107\nclose\nwait closed\nexpect closed\n"
                                 "drive 9902 240\nexpect drive 9902 240\nwait 2\nsay Well done\n"));
    EXPECT_EQ(status, 0) << tool.errors.toStdString();
    EXPECT_TRUE(tool.output.startsWith(QLatin1String("a.play:3  expect disabled next # nothing is ticked\n")));
    EXPECT_TRUE(tool.output.contains(QLatin1String("  show 9902\n  99.02 Motor 1 nominal voltage: 447 V\n")))
        << tool.output.toStdString();
    const QImage menu(tool.Path(QStringLiteral("deep/menu.png")));
    const QImage box(tool.Path(QStringLiteral("box.png")));
    EXPECT_GE(menu.width(), 400);
    EXPECT_TRUE(!box.isNull() && box.width() < menu.width());
}

TEST(Player, SaysWhereAndWhatWentWrongAndClosesEverything) {
    const struct {
        const char* lines; ///< on step 1; the last one fails
        const char* complaint;
    } cases[] = {
        {"expect title Menu", "expected: title Menu\n  there was: \"[KRT550Wizard] 1. Name plate data\""},
        {"expect value 9902 351", "there was: \"240\""},
        {"press 9999", "control 9999 is not on screen"},
        {"press 158", "control 158 is not on screen"},
        {"press back\npress next", "control 95 (\"Next >\") is disabled"},
        {"set 4403 5", "the row of 4403 is not on screen"},
        {"choose 9901 Nothing", "the list has no \"Nothing\" but \""},
        {"set 9901 x", "no field to type into"},
        {"tab Colours", "there are no tabs on screen"},
        {"press back\ntick 5\npress next\nwait idle\ntab Colours", "there is no tab \"Colours\""},
        {"set 9902 99999\npress next", "a message box \""},
        {"set 9902 99999\nwait progress 90", "a message box \""},
        {"set 9902 99999", "a message box \""},
        {"set 9902 99999\nexpect box \"It turns\"", "a message box \""},
        {"set 9902 99999\nanswer yes", "no message box with such a button"},
        {"expect box", "no message box"},
        {"wait value 9902 7 within 5", "there was: \"240\""},
        {"press cancel\nclose\nwait box", "no message box"},
        {"press cancel\nclose\nwait closed\npress next", "closed already"},
        {"drive 9999 5", "no parameter 9999"},
        {"fault moon", "moon"},
        {"measure 9901", "nobody can measure 9901"},
        {"expect calls 2 WriteWord", "0 such calls among"},
        {"shot /proc/none/x.png", "cannot be written"},
        {"close window Nothing", "there is no window \"Nothing\""},
    };
    for (const auto& c : cases) {
        ToolRun tool;
        const QString lines = QLatin1String("start\nexpect page 100\n") + QString::fromUtf8(c.lines);
        EXPECT_EQ(tool.Play(lines), 1) << c.lines;
        EXPECT_TRUE(
            tool.errors.startsWith(QStringLiteral("a.play:%1: failed\n").arg(1 + lines.count(QLatin1Char('\n')))))
            << tool.errors.toStdString();
        EXPECT_TRUE(tool.errors.contains(QString::fromUtf8(c.complaint)))
            << c.lines << ": " << tool.errors.toStdString();
        EXPECT_TRUE(tool.output.contains(QLatin1String("RunWizard returned 0\n"))) << c.lines;
    }
}

} // namespace
} // namespace krt550
