#include "hostlib/tolvbo32/drive_description.h"

namespace krt550 {
namespace {

const QByteArray kHeader =
    "register\tname\tunit\tdata type\ttype\tdecimals\tminimum\tmaximum\tdefault\taccess\tvalues\n";

struct Reading {
    std::optional<std::vector<ParameterDescription>> parameters;
    QStringList errors;
};

Reading Read(QByteArray text) {
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    Reading reading;
    reading.parameters = ReadDriveDescription(buffer, QStringLiteral("drive.txt"), reading.errors);
    return reading;
}

// What the shipped description does not have.
TEST(DriveDescription, ReadsCommentsCarriageReturnsAndValuesWithEqualsSigns) {
    const Reading reading =
        Read("# a comment\n\n" + kHeader +
             "9904\tBase speed\trpm\t2\t2\t1\t-10.5\t3000\t1500.5\trw\t\r\n"
             "911\tDiagnosis\t\t8\t4\t0\t0\t0\t7\tro\t0=No fault;7=Field \xc2\xb5=0;9=#excl#;8=#excl#\n");
    ASSERT_TRUE(reading.parameters) << reading.errors.join(u'\n').toStdString();
    ASSERT_EQ(reading.parameters->size(), 2U);
    EXPECT_EQ(reading.parameters->at(0).minimum, -10.5);
    EXPECT_EQ(reading.parameters->at(0).defaultValue, 1500.5);
    EXPECT_TRUE(reading.parameters->at(1).readOnly && !reading.parameters->at(0).readOnly);
    ASSERT_EQ(reading.parameters->at(1).values.size(), 4U);
    EXPECT_EQ(reading.parameters->at(1).values[1].second, QStringLiteral("Field µ=0"));
}

TEST(DriveDescription, ReportsEachKindOfBadLineWithFileAndLine) {
    const struct {
        const char* line;
        const char* what;
    } cases[] = {
        {"2005\tLimit\t%\t8\t3\t0\t0\t10\t5\trw", "10 fields instead of 11"},
        {"2005\tLimit\t%\t8\t3\t0\t0\t10\t5\trw\t\t", "12 fields instead of 11"},
        {"\t\t\t", "4 fields instead of 11"},
        {"20.05\tLimit\t%\t8\t3\t0\t0\t10\t5\trw\t", "bad register \"20.05\""},
        {"099\tLimit\t%\t8\t3\t0\t0\t10\t5\trw\t", "bad register \"099\""},
        {"99\tLimit\t%\t8\t3\t0\t0\t10\t5\trw\t", "bad register \"99\""},
        {"70000\tLimit\t%\t8\t3\t0\t0\t10\t5\trw\t", "bad register \"70000\""},
        {"2005\t\t%\t8\t3\t0\t0\t10\t5\trw\t", "bad name \"\""},
        {"2005\tLimit\t%\t3\t3\t0\t0\t10\t5\trw\t", "bad data type \"3\""},
        {"2005\tLimit\t%\t8\t7\t0\t0\t10\t5\trw\t", "bad type \"7\""},
        {"2005\tLimit\t%\t8\t3\t5\t0\t10\t5\trw\t", "bad decimals \"5\""},
        {"2005\tLimit\t%\t8\t3\t0\t0,5\t10\t5\trw\t", "bad minimum \"0,5\""},
        {"2005\tLimit\t%\t8\t3\t0\t0\tlots\t5\trw\t", "bad maximum \"lots\""},
        {"2005\tLimit\t%\t8\t3\t0\t0\t10\t\trw\t", "bad default \"\""},
        {"2005\tLimit\t%\t8\t3\t0\t0\t10\t5\tRW\t", "bad access \"RW\""},
        {"2005\tLimit\t%\t8\t3\t0\t11\t10\t5\trw\t", "minimum is above maximum"},
        {"2005\tLimit\t%\t8\t3\t0\t-1\t10\t5\trw\t", "limit -1 does not fit the data type"},
        {"2005\tLimit\t%\t8\t3\t1\t0\t7000\t5\trw\t", "limit 7000 does not fit the data type"},
        {"2005\tLimit\t%\t8\t3\t0\t0\tnan\t5\trw\t", "limit nan does not fit the data type"},
        {"2005\tLimit\t%\t8\t3\t0\t0\t10\t11\trw\t", "default 11 is not a value of the parameter"},
        {"2005\tMode\t\t8\t4\t0\t0\t0\t2\trw\t0=No;1=Yes", "default 2 is not a value of the parameter"},
        {"2005\tMode\t\t8\t4\t0\t0\t0\t0\trw\t0=No;Yes", "bad or repeated value \"Yes\""},
        {"2005\tMode\t\t8\t4\t0\t0\t0\t0\trw\t0=No;0=Yes", "bad or repeated value \"0=Yes\""},
        {"2005\tMode\t\t8\t4\t0\t0\t0\t0\trw\t0=No;1=No", "bad or repeated value \"1=No\""},
        {"2005\tMode\t\t8\t4\t0\t0\t0\t0\trw\t0=No;1=", "bad or repeated value \"1=\""},
        {"2005\tMode\t\t1\t4\t0\t0\t0\t0\trw\t0=No;256=Yes", "bad or repeated value \"256=Yes\""},
        {"801\tAgain\t\t4\t5\t0\t0\t0\t0\tro\t", "register 801 stands here a second time"},
    };
    QByteArray text = kHeader + "801\tStatus\t\t4\t5\t0\t0\t0\t0\tro\t\n";
    for (const auto& c : cases)
        text += QByteArray(c.line) + '\n';
    const Reading reading = Read(text);
    EXPECT_FALSE(reading.parameters);
    ASSERT_EQ(reading.errors.size(), qsizetype(std::size(cases))) << "all bad lines in one go";
    for (qsizetype i = 0; i < reading.errors.size(); ++i)
        EXPECT_EQ(reading.errors[i].toStdString(), "drive.txt:" + std::to_string(i + 3) + ": " + cases[i].what);
}

TEST(DriveDescription, NeedsItsHeaderLineFirst) {
    for (const auto& [text, error] :
         {std::pair<QByteArray, const char*>{"# drive\n801\tStatus\t\t4\t5\t0\t0\t0\t0\tro\t\n" + kHeader,
                                             "drive.txt:2: the header line must read: register"},
          {"", "no header line"},
          {"# nothing\n\n", "no header line"}}) {
        const Reading reading = Read(text);
        EXPECT_FALSE(reading.parameters);
        ASSERT_EQ(reading.errors.size(), 1);
        EXPECT_TRUE(reading.errors[0].contains(QLatin1String(error))) << reading.errors[0].toStdString();
    }
    EXPECT_TRUE(Read(kHeader).parameters) << "a drive without parameters is one";
}

} // namespace
} // namespace krt550
