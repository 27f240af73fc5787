#pragma once

#include "drive/control_word.h"
#include "drive/drive_link.h"
#include "drive/fault_codes.h"
#include "drive/macros.h"
#include "tests/drive/whole_drive.h"

#include <QRegularExpression>

namespace krt550::test {

inline CMacroTable ShippedMacros() {
    QStringList errors;
    const auto macros =
        ReadMacroFile(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.macros"), WholeDescription(), errors);
    EXPECT_TRUE(macros) << errors.join(u'\n').toStdString();
    return macros.value_or(CMacroTable());
}

/// A motor with short ramps and whatever lies at its terminals and links, worked by scripts. A script has steps,
/// "|" between them: what is done, ":", what is there afterwards.
///
/// Done are "DI7=on AI1=5" at the terminals, "701=1151" as a raw word over the link
/// ("!9907=1": it is refused), "feedback=tacho", "exciter=external50", "slave=parallel", "macro=3" loaded after others,
/// "local=on", "off", "ref=900", "close", "start", "stop", "open" and "reset" by the tool ("!start": it is refused),
/// "partner" (the drive at the other end of the drive-to-drive link, from then on), "partner9401=1" in it, "plc2=10000"
/// from the PLC, fault modes until "repaired", "3009:108.5" as what stands in a register, "mains=130" V, "hanging=10"
/// Nm at the shaft, and "2.5s": so much time passes; "silence=2.5": so much without the tool. A step that only looks
/// comes 5 s later.
///
/// Looked at are registers in shown units, "803.2" bit 2 of one, outputs, "partner104", "plc2", "why=too_fast", why the
/// last was refused, and "trip=101" or "alarm=106" ("trip=0": neither), in everything that tells of them. "~12" is how
/// far off a value may be, which is 2 % or 0.5 otherwise; "104>900" and "104<900" are limits.
class ScriptedDrive : public WholeDrive {
public:
    explicit ScriptedDrive(const MotorSet& motor = DefaultMotorSet()) : WholeDrive(motor) { Prepare(Drive()); }

    void Play(const QString& script) {
        for (const QString& step : Spelt(script).split(u'|')) {
            SCOPED_TRACE(step.toStdString());
            const QString looks = step.section(u':', -1);
            const bool isLook = step.contains(QLatin1String(": "));
            bool waited = false;
            for (const QString& word : (isLook ? step.section(QLatin1String(": "), 0, 0) : step).split(u' ')) {
                const bool isTime = word.endsWith(u's') && word[0].isDigit();
                waited = waited || isTime;
                if (isTime)
                    Seconds(word.chopped(1).toDouble());
                else if (!word.isEmpty())
                    Do(word);
            }
            if (isLook && !waited)
                Seconds(5);
            for (const QString& look : (isLook ? looks : QString()).split(u' ', Qt::SkipEmptyParts))
                Expect(look);
        }
    }

    void Do(const QString& word) {
        const QString name = word.section(u'=', 0, 0), value = word.section(u'=', 1);
        const auto number = static_cast<quint16>(value.toInt());
        if (const std::optional<bool> done = Command(word.mid(word.startsWith(u'!') ? 1 : 0)))
            EXPECT_NE(*done, word.startsWith(u'!')) << Drive().GetLastError().toStdString();
        else if (word == QLatin1String("partner"))
            AddPartner();
        else if (word == QLatin1String("repaired"))
            Repair();
        else if (name == QLatin1String("macro"))
            LoadMacro(number);
        else if (name == QLatin1String("feedback"))
            Drive().GetFeedback().device = value == QLatin1String("none")    ? FeedbackDevice::None
                                           : value == QLatin1String("tacho") ? FeedbackDevice::Tacho
                                                                             : FeedbackDevice::Encoder;
        else if (name == QLatin1String("exciter"))
            EXPECT_TRUE(ParseExciter(value, Drive().GetExciter()));
        else if (name == QLatin1String("slave"))
            Drive().GetTwelvePulse().GetSlave().wiring =
                value == QLatin1String("parallel") ? SlaveWiring::Parallel : SlaveWiring::Series;
        else if (name.startsWith(QLatin1String("partner")))
            m_partner->TakeWord(name.mid(7).toUShort(), number);
        else if (name.startsWith(QLatin1String("plc")))
            Drive().SendFromPlc(name.mid(3).toInt(), number);
        else if (name.startsWith(u'!'))
            EXPECT_FALSE(Drive().WriteRegister(name.mid(1).toUShort(), number));
        else if (name == QLatin1String("silence"))
            Silence(value.toDouble());
        else if (name == word && word[0].isDigit())
            SetValue(word.section(u':', 0, 0).toUShort(), word.section(u':', 1).toDouble());
        else if (name == word || name == QLatin1String("hanging") || name == QLatin1String("mains"))
            Disturb(word.toLatin1().constData());
        else if (const std::optional<Terminal> terminal = ParseTerminal(name)) {
            QString error;
            const std::optional<double> level = ParseTerminalValue(*terminal, value, error);
            EXPECT_TRUE(level && Drive().SetTerminal(*terminal, *level)) << error.toStdString();
        } else
            EXPECT_TRUE(Drive().WriteRegister(name.toUShort(), number)) << Drive().GetLastError().toStdString();
    }

private:
    /// What the tool commands; whether the drive does it.
    std::optional<bool> Command(const QString& word) {
        CSimulatedDrive& drive = Drive();
        const std::map<QString, bool (CSimulatedDrive::*)()> commands = {
            {"local=on", &CSimulatedDrive::TakeLocalControl}, {"local=off", &CSimulatedDrive::ReleaseLocalControl},
            {"close", &CSimulatedDrive::CloseContactor},      {"open", &CSimulatedDrive::OpenContactor},
            {"start", &CSimulatedDrive::StartMotor},          {"stop", &CSimulatedDrive::StopMotor},
            {"reset", &CSimulatedDrive::ResetFault}};
        if (word.startsWith(QLatin1String("ref=")))
            return drive.SetSpeedReference(word.mid(4).toDouble());
        const auto command = commands.find(word);
        return command == commands.end() ? std::nullopt : std::optional((drive.*command->second)());
    }
    static QString Spelt(const QString& script) {
        static const QMap<QString, QString> kShortForms = {
            {"run", "DI7=on DI8=on AI1=5"},
            {"runs", "5003=1 local=on ref=1000 close start 8s : 104=1000~10"},
            {"bus-runs", "5003=1 1101=5 2301=1000 701=1030 701=1151 8s : 104=1000~10"},
            {"by-emf", "local=on ref=800 close start 12s : 104=800~8"},
            {"tests", "9906=5 local=on close start 30s : 424>80"},
            {"turns", "9906=5 104=1750~90"},
            {"stops", "stop open 25s : 9906=0 trip=0"},
            {"bus", "9802=1 1001=1 1101=5"},
            {"plc-runs", "plc1=1030 plc2=10000 plc1=1151"}, // the PLC in control, off; then on and run
            {"mailbox", "9412=1 9414=704 9415=217 0.1s"}, // a follower that hears too late of its master does not start
            {"twelve", "slave=parallel 4301=2 4701=1 DI7=on DI8=on AI1=5 load:80"},
            {"as-any-macro", "!9907=1 DI5=off 8s : 104=0 | DI5=on : 104=0"}};
        QStringList words = script.split(u' ');
        for (QString& word : words)
            word = kShortForms.value(word, word);
        return words.join(u' ');
    }
    void Prepare(CSimulatedDrive& drive) {
        CRegisterFile& registers = drive.GetRegisters();
        registers.SetNumber(reg::kArmatureResistance, drive.GetMotor().GetData().armatureResistance * 1000);
        registers.SetNumber(reg::kArmatureInductance, drive.GetMotor().GetData().armatureInductance * 1000);
        registers.SetNumber(reg::kRampUp, 2);
        registers.SetNumber(reg::kRampDown, 2);
        registers.SetNumber(reg::kQuickStopRamp, 1);
    }
    void AddPartner() {
        m_partner.emplace(WholeDescription(), FindMotorSet(QStringLiteral("S1")));
        Prepare(*m_partner);
        SetUpFollower(*m_partner);
        m_link.emplace(Drive(), *m_partner);
    }
    /// Of a macro before nothing is left.
    void LoadMacro(int macro) {
        Drive().SetMacros(ShippedMacros());
        for (const int next : {8, 1, 5, 3, 6, 7, macro}) {
            SetValue(reg::kMacro, next);
            Do(QStringLiteral("9907=1"));
        }
        EXPECT_EQ(Value(reg::kLoadMacro), 0);
    }
    void Expect(const QString& look) {
        const auto at = look.indexOf(QRegularExpression(QStringLiteral("[<=>]")));
        const QString name = look.left(at), value = look.mid(at + 1).section(u'~', 0, 0);
        const QString slack = look.section(u'~', 1);
        if (name == QLatin1String("why")) {
            EXPECT_TRUE(Drive().GetLastError().contains(QString(value).replace(u'_', u' ')))
                << Drive().GetLastError().toStdString();
            return;
        }
        const double wanted = value.toDouble();
        if (name == QLatin1String("trip"))
            ExpectFaults(int(wanted), 0);
        else if (name == QLatin1String("alarm"))
            ExpectFaults(0, int(wanted));
        else if (look[at] != u'=')
            EXPECT_EQ(Look(name) < wanted, look[at] == u'<') << look.toStdString() << ", it is " << Look(name);
        else
            EXPECT_NEAR(Look(name), wanted, slack.isEmpty() ? std::max(0.5, std::abs(wanted) * 0.02) : slack.toDouble())
                << look.toStdString();
    }
    /// Nothing else is told of; a drive that has tripped may also warn.
    void ExpectFaults(int trip, int alarm) {
        const auto words = [this](quint16 first) {
            return unsigned(Value(first)) + (unsigned(Value(first + 1)) << 16);
        };
        const auto bitOf = [](int code) { return code ? 1U << (code - kFirstFault) : 0; };
        const auto status = static_cast<unsigned>(Value(reg::kStatusWord));
        EXPECT_EQ(Drive().GetFaults().GetActive(), trip);
        EXPECT_EQ(words(reg::kFaultWord), bitOf(trip));
        EXPECT_EQ((status & status::kFault) != 0, trip != 0);
        if (trip) {
            EXPECT_EQ(Value(reg::kLastFaultCode), trip);
            EXPECT_EQ(Drive().GetMotorState().armatureCurrent, 0);
            return;
        }
        EXPECT_EQ(words(reg::kAlarmWord), bitOf(alarm));
        EXPECT_EQ((status & status::kWarning) != 0, alarm != 0);
        EXPECT_TRUE(!alarm || Value(reg::kLastAlarmCode) == alarm + kAlarmOffset);
    }
    double Look(const QString& name) {
        if (name.startsWith(QLatin1String("partner")))
            return m_partner->GetRegisters().GetNumber(name.mid(7).toUShort(), -1);
        if (const std::optional<Terminal> terminal = ParseTerminal(name))
            return Drive().GetTerminal(*terminal);
        if (name.contains(u'.'))
            return int(Value(name.section(u'.', 0, 0).toUShort())) >> name.section(u'.', 1).toInt() & 1;
        if (!name.startsWith(QLatin1String("plc")))
            return Value(name.toUShort());
        const auto word = Drive().ReceivedByPlc(name.mid(3).toInt());
        return word ? static_cast<qint16>(*word) : -99999;
    }

    std::optional<CSimulatedDrive> m_partner;
    std::optional<CDriveLink> m_link;
};

struct Script {
    const char* name;
    const char* script;
};

inline void PrintTo(const Script& script, std::ostream* out) {
    *out << script.name;
}

class Scripts : public testing::TestWithParam<Script> {};

inline std::string NameOf(const testing::TestParamInfo<Script>& script) {
    return script.param.name;
}

} // namespace krt550::test
