// Has the drive identify random motors of 1 to 300 kW, and one of them under wrong name plates, with a locked shaft and
// without field; prints what it has found beside the truth, or why it has refused.
//     motor_table [motors [seed]]
// Exit status 1 when something is found wrong, or refused for a reason that is not so.
#include "drive/motor_sets.h"
#include "drive/registers.h"
#include "drive/service_run.h"
#include "drive/simulated_drive.h"
#include "hostlib/tolvbo32/clock.h"
#include "hostlib/tolvbo32/drive_description.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numbers>
#include <random>
#include <string>

namespace krt550 {
namespace {

constexpr double kTolerance = 0.1;

/// A motor as they are built: losses, field power and time constants go with its size.
class CMotorMaker {
public:
    explicit CMotorMaker(unsigned seed) : m_random(seed) {}

    MotorSet Make() {
        const double power = 1000 * std::pow(300, Between(0, 1));
        const double size = std::log10(power / 1000) / std::log10(300); // 0 to 1
        MotorSet motor = DefaultMotorSet();
        motor.voltage = Choose({180, 260, 420, 440, 500});
        motor.baseSpeed = std::round(Between(700, 3000) - 300 * size);
        const double efficiency = 0.74 + 0.2 * size + Between(-0.02, 0.02);
        motor.current = std::round(power / efficiency / motor.voltage * 10) / 10;
        motor.ra = Between(0.45, 0.75) * (1 - efficiency) * motor.voltage / motor.current;
        motor.la = Between(0.008, 0.04) * motor.ra;
        motor.fieldVoltage = Choose({110, 180, 220, 310});
        const double fieldPower = power * (0.06 - 0.05 * size) * Between(0.8, 1.3);
        motor.fieldCurrent = std::max(0.2, std::round(fieldPower / motor.fieldVoltage * 100) / 100);
        motor.rf = motor.fieldVoltage / motor.fieldCurrent;
        motor.lf = motor.rf * Between(0.15, 1.5 + 2.5 * size);
        const double speed = motor.baseSpeed * std::numbers::pi / 30;
        motor.laf = (motor.voltage - motor.ra * motor.current) / speed / motor.fieldCurrent;
        motor.inertia = motor.GetRatedTorque() / speed * Between(0.1, 1.5) * Between(1, 3);
        motor.viscous = 0.01 * motor.GetRatedTorque() / speed;
        motor.coulomb = Between(0.025, 0.05) * motor.GetRatedTorque();
        FitSupply(motor);
        return motor;
    }

private:
    double Between(double low, double high) { return std::uniform_real_distribution(low, high)(m_random); }
    double Choose(std::initializer_list<double> values) {
        return values.begin()[std::uniform_int_distribution<std::size_t>(0, values.size() - 1)(m_random)];
    }
    std::mt19937 m_random;
};

/// A drive with a motor and the person in front of it.
class CTrial {
public:
    CTrial(const std::vector<ParameterDescription>& parameters, const MotorSet& motor)
        : m_motor(motor), m_drive(parameters, &motor) {
        Set(reg::kSpeedSource, 1);
        Set(reg::kFieldMode, 1);
    }

    CSimulatedDrive& Drive() { return m_drive; }
    void Set(quint16 reg, double shown) { m_drive.GetRegisters().SetNumber(reg, shown); }
    double Get(quint16 reg) const { return const_cast<CSimulatedDrive&>(m_drive).GetRegisters().GetNumber(reg, -1); }

    quint16 Tune(quint16 mode) {
        m_drive.ResetFault();
        m_drive.TakeLocalControl();
        m_drive.OpenContactor();
        m_drive.WriteRegister(reg::kServiceMode, mode);
        m_drive.CloseContactor();
        m_drive.StartMotor();
        for (int cycle = 0; cycle < 5001 && Get(reg::kServiceMode) != 0; ++cycle)
            Wait(50);
        m_drive.StopMotor();
        m_drive.OpenContactor();
        for (int i = 0; i < 6000 && !m_drive.IsStopped(); ++i)
            Wait(50);
        return static_cast<quint16>(Get(reg::kDiagnosis));
    }

    /// As the text of the refusal advises: more current, and the shaft held against it.
    quint16 TuneArmature() {
        quint16 code = Tune(1);
        if (code == diagnosis::kNotContinuous || code == diagnosis::kTurned) {
            Set(reg::kCurrentLimit1, 150);
            m_drive.GetMotor().SetLocked(true);
            code = Tune(1);
            m_drive.GetMotor().SetLocked(false);
            Set(reg::kCurrentLimit1, 100);
        }
        return code;
    }

    /// The refusal says what is the case.
    bool IsRight(quint16 code) const {
        CSixPulseConverter converter;
        converter.SetSupply(m_motor.mains, 50);
        const double line = converter.DiscontinuousLimit(0.1, m_motor.la) / m_motor.current;
        return (code == diagnosis::kNotContinuous && line > 0.6) ||
               (code == diagnosis::kInductanceTooLarge && m_motor.la > 0.6) ||
               (code == diagnosis::kInertiaTooLarge && m_motor.inertia > 60);
    }

private:
    void Wait(qint64 milliseconds) {
        m_clock.Sleep(milliseconds);
        m_drive.Poll();
    }

    CSteppedClock m_clock;
    ClockScope m_scope{m_clock};
    MotorSet m_motor;
    CSimulatedDrive m_drive;
};

const QString& ReasonText(const std::vector<ParameterDescription>& parameters, quint16 code) {
    static const QString none = QStringLiteral("?");
    const auto found = std::ranges::find(parameters, reg::kDiagnosis, &ParameterDescription::reg);
    for (const auto& value : found->values)
        if (value.first == code)
            return value.second;
    return none;
}

struct Result {
    const char* what;
    quint16 mode;
    quint16 reg;
};
constexpr Result kResults[] = {{"Tf", 2, reg::kFieldTime},
                               {"R", 1, reg::kArmatureResistance},
                               {"L", 1, reg::kArmatureInductance},
                               {"J", 4, reg::kInertia}};

class CTable {
public:
    explicit CTable(std::vector<ParameterDescription> parameters) : m_parameters(std::move(parameters)) {}

    /// Tunes field, armature and speed; `right` tells which refusals are what is the case here.
    void Row(const std::string& name, const MotorSet& motor, const std::function<void(CTrial&)>& prepare,
             const std::function<bool(const CTrial&, quint16 mode, quint16 code)>& right) {
        CTrial trial(m_parameters, motor);
        prepare(trial);
        std::printf("%-34s", name.c_str());
        std::string refusals;
        bool allFound = true;
        for (const quint16 mode : {quint16{2}, quint16{1}, quint16{4}, quint16{3}}) {
            const quint16 code = mode == 1 ? trial.TuneArmature() : trial.Tune(mode);
            if (code) {
                allFound = false;
                const bool fits = right(trial, mode, code);
                m_wrong += !fits;
                refusals = std::string(fits ? "  refused: " : "  WRONGLY REFUSED: ") +
                           ReasonText(m_parameters, code).toStdString() + " (mode " + std::to_string(mode) + ")";
                break; // the next runs go by what this one should have found
            }
            for (const Result& result : kResults)
                if (result.mode == mode)
                    allFound = Compare(trial, result) && allFound;
        }
        m_found += allFound;
        ++m_rows;
        std::printf("%s\n", refusals.c_str());
        std::fflush(stdout);
    }

    /// True when nothing was wrong.
    bool Conclude(const char* title) {
        std::printf("%s: %d of %d identified within %.0f %%, %d refused, %d wrong\n\n", title, m_found, m_rows,
                    kTolerance * 100, m_rows - m_found - m_wrong, m_wrong);
        const bool good = m_wrong == 0;
        m_found = m_rows = m_wrong = 0;
        return good;
    }

private:
    bool Compare(CTrial& trial, const Result& result) {
        const double truth = trial.Drive().GetTrueValue(result.reg).value_or(0);
        const double off = trial.Get(result.reg) / truth - 1;
        const auto parameter = std::ranges::find(m_parameters, result.reg, &ParameterDescription::reg);
        const double resolution = std::pow(10, -parameter->decimals);
        const bool fits = std::abs(off) < kTolerance || std::abs(off) * truth <= resolution / 2;
        std::printf(" %s %+5.1f%%%s", result.what, off * 100, fits ? "" : "!");
        m_wrong += !fits;
        return fits;
    }

    std::vector<ParameterDescription> m_parameters;
    int m_found = 0;
    int m_rows = 0;
    int m_wrong = 0;
};

std::string NameOf(const MotorSet& motor) {
    char text[64];
    std::snprintf(text, sizeof text, "%5.1f kW %3.0f V %6.1f A %4.0f rpm", motor.voltage * motor.current / 1000,
                  motor.voltage, motor.current, motor.baseSpeed);
    return text;
}

bool PrintTables(const std::vector<ParameterDescription>& parameters, int motors, unsigned seed) {
    CTable table(parameters);
    CMotorMaker maker(seed);
    const auto nothing = [](CTrial&) {};
    const auto asItIs = [](const CTrial& trial, quint16, quint16 code) { return trial.IsRight(code); };
    for (int i = 0; i < motors; ++i) {
        const MotorSet motor = maker.Make();
        table.Row(NameOf(motor), motor, nothing, asItIs);
    }
    bool good = table.Conclude("Random motors");

    // What a wrong plate makes impossible may be refused, with a reason that names it; the rest must be right all the
    // same.
    const struct {
        const char* name;
        quint16 reg;
        double factor;
        std::set<quint16> reasons;
    } plates[] = {
        {"voltage 99.02 x 0.6", reg::kRatedVoltage, 0.6, {diagnosis::kOvervoltage, diagnosis::kSpeedNotReached}},
        {"voltage 99.02 x 1.5", reg::kRatedVoltage, 1.5, {}},
        {"current 99.03 x 0.5", reg::kRatedCurrent, 0.5, {diagnosis::kNotContinuous}},
        {"base speed 99.04 x 0.6", reg::kBaseSpeed, 0.6, {}},
        {"base speed 99.04 x 1.4", reg::kBaseSpeed, 1.4, {diagnosis::kSpeedLimits}},
        {"field voltage 99.05 x 0.4",
         reg::kRatedFieldVoltage,
         0.4,
         {diagnosis::kFieldNotReached, diagnosis::kFieldResistance}},
        {"field current 99.11 x 0.5",
         reg::kRatedFieldCurrent,
         0.5,
         {diagnosis::kFieldResistance, diagnosis::kFieldOvercurrent, diagnosis::kOverspeed,
          diagnosis::kSpeedNotReached}},
        {"field current 99.11 x 2",
         reg::kRatedFieldCurrent,
         2,
         {diagnosis::kFieldResistance, diagnosis::kFieldNotReached}},
    };
    const MotorSet& motor = *FindMotorSet(QStringLiteral("S3"));
    for (const auto& plate : plates)
        table.Row(
            plate.name, motor, [&](CTrial& trial) { trial.Set(plate.reg, trial.Get(plate.reg) * plate.factor); },
            [&](const CTrial&, quint16, quint16 code) { return plate.reasons.contains(code); });
    good = table.Conclude("Wrong name plates of S3") && good;

    table.Row(
        "shaft locked", motor, [](CTrial& trial) { trial.Drive().GetMotor().SetLocked(true); },
        [](const CTrial&, quint16, quint16 code) { return code == diagnosis::kDoesNotTurn; });
    table.Row(
        "no field", motor, [](CTrial& trial) { trial.Drive().GetMotor().SetFieldBroken(true); },
        [](const CTrial&, quint16, quint16 code) {
            return code == diagnosis::kFieldNotReached || code == diagnosis::kFieldLost;
        });
    return table.Conclude("Defects of S3") && good;
}

} // namespace
} // namespace krt550

int main(int argc, char** argv) {
    QStringList errors;
    const auto parameters =
        krt550::ReadDriveDescriptionFile(QStringLiteral(KRT550_SOURCE_DIR "/data/KRT550.parameters"), errors);
    if (!parameters) {
        std::fprintf(stderr, "%s\n", qPrintable(errors.join(QLatin1Char('\n'))));
        return 2;
    }
    const int motors = argc > 1 ? std::atoi(argv[1]) : 60;
    const unsigned seed = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1;
    return krt550::PrintTables(*parameters, motors, seed) ? 0 : 1;
}
