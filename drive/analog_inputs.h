#pragma once

#include "drive/pi_controller.h"
#include "drive/supervision.h"

#include <array>

namespace krt550 {

class CRegisterFile;

/// The analogue inputs: from the voltage at the terminals to a share of the full signal, by each input's conversion
/// mode, high and low value and filter (13.01 to 13.16). A current is a voltage here: 20 mA through 500 ohms are 10 V.
class CAnalogInputs {
public:
    static constexpr int kInputs = 4;
    /// A loop that cannot go below 2 V or 4 mA is broken below this [V].
    static constexpr double kBrokenLoop = 1.8;

    void Read(const CRegisterFile& registers);
    /// `volts` at the terminals, after `seconds`.
    void Sample(double seconds, const std::array<double, kInputs>& volts);

    /// Input 1 to 4, 1 at its high value. A broken loop keeps its last value where 13.17 says so; 0 for any other
    /// input.
    double GetShare(int input) const;
    /// What 13.17 makes of the inputs that are used and broken.
    Findings GetFindings() const;
    /// 5.03 to 5.10.
    void Show(CRegisterFile& registers) const;

private:
    struct Input {
        quint16 mode = 0;
        double high = 10;  ///< [V]
        double low = -10;  ///< [V]
        double filter = 0; ///< [s]
        bool used = false; ///< somebody's selector names it
        double volts = 0;
        bool broken = false;
        CLag share;
    };
    static double Convert(const Input& input, double volts);

    std::array<Input, kInputs> m_inputs;
    Reaction m_reaction = Reaction::None;
};

} // namespace krt550
