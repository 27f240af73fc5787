// Has the drive identify random motors of 1 to 300 kW, and one under wrong name plates; prints what it has found beside
// the truth, or why it has refused.
//     motor_table [motors [seed]]
// Exit status 1 when something is found wrong, or refused for a reason that is not so.
// What tests include counts on it.
#include "tests/support/precompiled.h"

#include "hostlib/tolvbo32/value_codec.h"
#include "tests/drive/whole_drive.h"

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
class CTrial : public test::WholeDrive {
public:
    explicit CTrial(const MotorSet& motor) : WholeDrive(motor) {
        SetValue(reg::kSpeedSource, 1);
        SetValue(reg::kFieldMode, 1);
    }

    quint16 TuneAndRest(quint16 mode) {
        Drive().ResetFault();
        Drive().OpenContactor();
        const int code = Tune(mode);
        for (int i = 0; i < 6000 && !Drive().IsStopped(); ++i)
            Seconds(0.05);
        return static_cast<quint16>(code);
    }

    /// As the text of the refusal advises: more current, and the shaft held against it.
    quint16 TuneArmature() {
        quint16 code = TuneAndRest(1);
        if (code == diagnosis::kNotContinuous || code == diagnosis::kTurned) {
            SetValue(reg::kCurrentLimit1, 150);
            Motor().SetLocked(true);
            code = TuneAndRest(1);
            Motor().SetLocked(false);
            SetValue(reg::kCurrentLimit1, 100);
        }
        return code;
    }

    /// The refusal says what is the case.
    bool IsRight(quint16 code) {
        const MotorSet& motor = Drive().GetMotorSet();
        CSixPulseConverter converter;
        converter.SetSupply(motor.mains, 50);
        const double line = converter.DiscontinuousLimit(0.1, motor.la) / motor.current;
        return (code == diagnosis::kNotContinuous && line > 0.6) ||
               (code == diagnosis::kInductanceTooLarge && motor.la > 0.6) ||
               (code == diagnosis::kInertiaTooLarge && motor.inertia > 60);
    }

    const ParameterDescription& Describe(quint16 reg) { return *Drive().GetRegisters().FindDescription(reg); }
};

/// What is wrong on a name plate, and what the drive may say of it.
struct Plate {
    const char* name;
    quint16 reg;
    double factor;
    std::set<quint16> reasons;
};

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
    /// Tunes field, armature and speed.
    void Row(const std::string& name, const MotorSet& motor, const Plate* plate = nullptr) {
        CTrial trial(motor);
        if (plate)
            trial.SetValue(plate->reg, trial.Value(plate->reg) * plate->factor);
        std::printf("%-34s", name.c_str());
        std::string refusals;
        bool allFound = true;
        for (const quint16 mode : {quint16{2}, quint16{1}, quint16{4}, quint16{3}}) {
            const quint16 code = mode == 1 ? trial.TuneArmature() : trial.TuneAndRest(mode);
            if (code) {
                allFound = false;
                const bool fits = plate ? plate->reasons.contains(code) : trial.IsRight(code);
                m_wrong += !fits;
                refusals = std::string(fits ? "  refused: " : "  WRONGLY REFUSED: ") +
                           ShownText(trial.Describe(reg::kDiagnosis), code).toStdString() + " (mode " +
                           std::to_string(mode) + ")";
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
        const double off = trial.Value(result.reg) / truth - 1;
        const double resolution = std::pow(10, -trial.Describe(result.reg).decimals);
        const bool fits = std::abs(off) < kTolerance || std::abs(off) * truth <= resolution / 2;
        std::printf(" %s %+5.1f%%%s", result.what, off * 100, fits ? "" : "!");
        m_wrong += !fits;
        return fits;
    }

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

// What a wrong plate makes impossible may be refused, with a reason that names it; the rest must be right all the same.
// Defects of the motor are in the tests of the drive's service runs.
const Plate kPlates[] = {
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
     {diagnosis::kFieldResistance, diagnosis::kFieldOvercurrent, diagnosis::kOverspeed, diagnosis::kSpeedNotReached}},
    {"field current 99.11 x 2", reg::kRatedFieldCurrent, 2, {diagnosis::kFieldResistance, diagnosis::kFieldNotReached}},
};

} // namespace
} // namespace krt550

int main(int argc, char** argv) {
    using namespace krt550;
    CTable table;
    CMotorMaker maker(argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1);
    for (int motors = argc > 1 ? std::atoi(argv[1]) : 60; motors > 0; --motors) {
        const MotorSet motor = maker.Make();
        table.Row(NameOf(motor), motor);
    }
    bool good = table.Conclude("Random motors");
    for (const Plate& plate : kPlates)
        table.Row(plate.name, *FindMotorSet(QStringLiteral("S3")), &plate);
    good = table.Conclude("Wrong name plates of S3") && good;
    return good ? 0 : 1;
}
