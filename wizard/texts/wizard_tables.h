#pragma once

#include "hostlib/text_files/text_table.h"
#include "wizard/texts/connection_table.h"
#include "wizard/texts/text_records.h"

#include <QHash>

#include <array>
#include <optional>

namespace krt550 {

/// One line of a connection table.
struct InputConnection {
    quint16 selector = 0;
    quint16 target = kNoWord;
    std::array<quint16, 8> select;
    quint16 disconnect = kNoWord;
    std::vector<std::string_view> names; ///< by language
};

/// Allowed values of a register before a page may start.
struct StartCondition {
    quint16 reg = 0;
    std::vector<quint16> allowed;
};

/// The start conditions of all pages.
class CStartConditions {
public:
    void Allow(quint16 step, quint16 reg, quint16 value);
    /// The condition of a register for a step, or null.
    const StartCondition* Find(quint16 step, quint16 reg) const;
    /// Registers with a condition for a step, in file order.
    QList<quint16> RegistersOf(quint16 step) const;

private:
    CKeyIndex m_index; ///< by step and register
    std::vector<StartCondition> m_conditions;
    QHash<quint16, QList<quint16>> m_registers; ///< by step
};

/// A module type and the fieldbus list that it takes.
struct FieldbusType {
    std::string_view moduleType;
    std::string_view fieldbusKey;
};

/// The tables of the wizard text file.
struct WizardTables {
    CTextArena arena;
    CTextTable toolTips{arena};
    CTextTable parameterNames{arena};
    CValueTextTable valueTexts{arena};
    CTextTable macroDescriptions{arena};
    QHash<quint16, std::vector<std::string_view>> macroRegisters;
    std::vector<InputConnection> digitalInputs;
    std::vector<InputConnection> analogueInputs;
    CTextTable digitalOutputs{arena};
    CTextTable analogueOutputs{arena};
    CStartConditions startConditions;
    QHash<int, int> updatePeriods;
    std::optional<SpeedResponse> speedResponse;
    std::vector<SliderValue> sliderValues;
    std::vector<FieldbusType> fieldbusTypes;
    std::array<std::vector<RegisterValue>, 6> fieldbusDefaults; ///< in the order of kFieldbusKeys
    std::optional<GainAdjustment> gainUp;
    std::optional<GainAdjustment> gainDown;
    CTextTable mailBoxTransmit{arena};
    CTextTable mailBoxReceive{arena};
    CTextTable dataSetReceive{arena};
    CTextTable dataSetTransmit{arena};
    QString refusal; ///< why the line read last was refused; empty when it was not

    WizardTables() = default;
    WizardTables(const WizardTables&) = delete;
    WizardTables& operator=(const WizardTables&) = delete;
};

inline constexpr std::array<std::string_view, 6> kFieldbusKeys = {"PROFIBUS",   "CANOPEN",  "DEVICENET",
                                                                  "CONTROLNET", "ETHERNET", "PROFINET"};

/// Reads a line of the wizard text file into its table. Lines with an unknown key are ignored, a line whose numbers
/// nobody could calculate with leaves its reason in `refusal`.
void ReadWizardLine(WizardTables& tables, std::string_view line);

} // namespace krt550
