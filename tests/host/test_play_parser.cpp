#include "host/play/parser.h"
#include "host/play/words.h"

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

TEST(PlayParser, SaysWhatIsWrongWithALine) {
    const struct {
        const char* line;
        const char* complaint;
    } cases[] = {
        {"jump", "there is no action \"jump\""},
        {"press", "something is missing at the end; it goes: press CONTROL"},
        {"press sideways", "\"sideways\" is not a control id"},
        {"tick 17", "not a page from 1 to 16"},
        {"set 9902", "something is missing"},
        {"set volts 3", "\"volts\" is not a register"},
        {"answer perhaps", "not ok, cancel, yes or no"},
        {"key 95 Foo", "\"Foo\" is not a key"},
        {"wait", "nothing to expect"},
        {"wait long", "\"long\" is nothing that can be waited for"},
        {"wait box within soon", "\"soon\" is not a number of seconds"},
        {"wait progress 101", "not a number from 0 to 100"},
        {"expect idle", "\"idle\" is nothing that can be expected"},
        {"expect no title x", "\"no title\" is not possible"},
        {"expect text next", "something is missing"},
        {"clear screen", "only the log"},
        {"terminal DI9 on", "\"DI9\" is no terminal; there are DI1 to DI8"},
        {"terminal DI1 up", "\"up\" is neither on nor off"},
        {"terminal DO1 on", "DO1 is an output; it goes: terminal"},
        {"expect terminal AO1 5 V within 0 %", "\"0\" is not a number from 1 to 100"},
        {"plc 13 5", "\"13\" is not a word from 1 to 12"},
        {"expect plc 1 0x", "\"0x\" is not a word"},
        {"say \"open", "a quotation mark has no partner"},
    };
    QByteArray play("start\n# fine\n");
    for (const auto& c : cases)
        play += QByteArray(c.line) + '\n';
    QStringList errors;
    EXPECT_FALSE(Read(play.constData(), errors));
    ASSERT_EQ(errors.size(), qsizetype(std::size(cases))) << "every bad line is reported";
    for (qsizetype i = 0; i < errors.size(); ++i) {
        EXPECT_TRUE(errors[i].startsWith(QStringLiteral("dir/a.play:%1: ").arg(i + 3))) << errors[i].toStdString();
        EXPECT_TRUE(errors[i].contains(QString::fromUtf8(cases[i].complaint))) << errors[i].toStdString();
    }
}

} // namespace
} // namespace krt550
