#include "drive/named_drive.h"
#include "host/backup/keeping.h"
#include "host/backup/restore.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/value_codec.h"
#include "tests/support/fake_drive.h"
#include "tests/support/shipped_drive.h"

namespace krt550 {
namespace {

// Name plate before limits, limits before values, selectors last; nothing that is a command.
const std::vector<ParameterValue> kWanted = {{1005, 3},   {1204, 100},  {2002, 1500}, {5202, 4},
                                             {9902, 400}, {9904, 1750}, {9906, 1}};
const QString kAll = QStringLiteral("9902=400 2002=1500 1204=100 1005=3");
const QString kBack = QStringLiteral("9902=400 2002=1500 1204=100 2002=1750 9902=240");

TEST(Restore, WritesAllOrNothingAndOnlyWhileNothingTurns) {
    using Trouble = bool (*)(FakeDrive & drive, const QString& call); // as FakeDrive::fails
    const struct {
        Trouble trouble;
        QString writes;
        const char* says;
        const char* alsoSays;
    } cases[] = {
        {[](FakeDrive&, const QString&) { return false; }, kAll, "4 values written and read back.", ""},
        {[](FakeDrive&, const QString& call) { return call == u"write 1204=100"; }, kBack,
         "12.04 Constant speed 1: 0 rpm -> 100 rpm: simulated failure", "2 values taken back."},
        // Its answer was lost, the drive has done it.
        {[](FakeDrive& drive, const QString& call) {
             if (call == u"write 1204=100")
                 drive.words[1204] = 100;
             return call == u"write 1204=100";
         },
         kAll, "4 values written", ""},
        {[](FakeDrive& drive, const QString& call) {
             if (call == u"read 1204" && drive.words[1204] == 100)
                 drive.words[1204] = 90;
             return false;
         },
         QStringLiteral("9902=400 2002=1500 1204=100 1204=0 2002=1750 9902=240"), "the drive holds 90 rpm afterwards",
         "3 values taken back."},
        {[](FakeDrive&, const QString& call) { return call == u"write 1204=100" || call == u"write 2002=1750"; }, kBack,
         "written and not taken back: 20.02 Motor 1 maximum speed: 1750 rpm -> 1500 rpm (simulated failure)",
         "taken back: 99.02"},
        // Gone for good in the middle.
        {[](FakeDrive& drive, const QString& call) {
             drive.hasInfo = drive.hasInfo && call != u"write 1204=100";
             return !drive.hasInfo;
         },
         QStringLiteral("9902=400 2002=1500 1204=100"), "not known what it holds: 12.04", "not written: 10.05"},
        {[](FakeDrive& drive, const QString& call) {
             if (call == u"write 2002=1500")
                 drive.statusWord = 0;
             return false;
         },
         QStringLiteral("9902=400 2002=1500"), "the motor turns: stop it first", "written and not taken back: 99.02"},
        {[](FakeDrive& drive, const QString&) {
             drive.words[801] |= 2;
             return false;
         },
         {},
         "the drive is switched on",
         "The drive holds what it held before."},
        {[](FakeDrive& drive, const QString&) {
             drive.words[9906] = 3;
             return false;
         },
         {},
         "a service mode runs (99.06)",
         ""},
        {[](FakeDrive&, const QString& call) { return call == u"read 801"; }, {}, "8.01 cannot be read", ""},
    };
    for (const auto& c : cases) {
        FakeDrive drive(ShippedParameters());
        CRestore restore(drive, drive, ShippedParameters());
        QStringList problems;
        ASSERT_TRUE(restore.Plan(kWanted, problems)) << problems.join(u'\n').toStdString();
        EXPECT_EQ(restore.GetLeftAlone().size(), 2U); // 52.02 and 99.06
        drive.TakeLog();
        drive.fails = [&](const QString& call) { return c.trouble(drive, call); };
        while (restore.Step()) {
        }
        EXPECT_EQ(drive.TakeLog({QStringLiteral("write ")}).join(u' ').remove(QStringLiteral("write ")), c.writes);
        const QString told = restore.Describe().join(u'\n');
        for (const char* part : {c.says, c.alsoSays})
            EXPECT_TRUE(told.contains(QLatin1String(part))) << part << " is not in:\n" << told.toStdString();
    }
}

TEST(Restore, WhatCouldNotBeTakenBackIsNotBegun) {
    FakeDrive drive(ShippedParameters());
    drive.unreadable = {2002};
    CRestore restore(drive, drive, ShippedParameters());
    QStringList problems;
    EXPECT_FALSE(restore.Plan({{2002, 1500}, {2104, 9}}, problems));
    EXPECT_TRUE(problems.join(u'\n').contains(QStringLiteral("20.02 Motor 1 maximum speed cannot be read")));
    EXPECT_TRUE(problems.join(u'\n').contains(QStringLiteral("21.04 E-stop mode: 9 is not one of its values")));
}

// Every setting changed by hand, another macro loaded, a motor identified: all of it is put back.
TEST(Restore, PutsEverySettingOfTheSimulatedDriveBack) {
    CSteppedClock clock;
    const ClockScope scope(clock);
    QStringList problems;
    QString error;
    auto files = ReadDriveFiles(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), {}, problems);
    const auto drive = MakeNamedDrive(QStringLiteral("sim:S1,adapter=profinet"), *std::move(files), {}, error);
    ASSERT_TRUE(drive) << error.toStdString();
    CParameterLink& link = drive->GetLink();
    const CRegisterFile& registers = drive->GetDrive().GetRegisters();
    const auto writable = [&] {
        std::map<quint16, quint16> words;
        for (const ParameterDescription& parameter : registers.GetDescriptions())
            if (!parameter.readOnly)
                words[parameter.reg] = registers.GetWord(parameter.reg);
        return words;
    };
    const std::vector<ParameterDescription> parameters = registers.GetDescriptions();
    const auto asFound = writable();
    const ParameterValues backup = ReadValues(*drive, link, BackedUp(parameters));
    ASSERT_TRUE(link.WriteWord(9908, 3) && link.WriteWord(9907, 1)) << link.LastErrorText().toStdString();
    int changed = 0;
    for (const ParameterDescription& parameter : parameters) {
        if (KeepingOf(parameter) != Keeping::Restored)
            continue;
        for (const double value : {parameter.maximum, parameter.minimum}) {
            const std::optional<quint16> word = WordOfNumber(parameter, value, error);
            if (word && *word != asFound.at(parameter.reg) && link.WriteWord(parameter.reg, *word)) {
                ++changed;
                break;
            }
        }
    }
    EXPECT_GT(changed, 300);
    CRestore restore(*drive, link, parameters);
    ASSERT_TRUE(restore.Plan(backup.values, problems)) << problems.join(u'\n').toStdString();
    while (restore.Step()) {
    }
    EXPECT_TRUE(restore.HasSucceeded()) << restore.Describe().join(u'\n').toStdString();
    EXPECT_EQ(writable(), asFound);
}

} // namespace
} // namespace krt550
