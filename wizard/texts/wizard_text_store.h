#pragma once

#include "wizard/texts/configurable_tables.h"
#include "wizard/texts/text_records.h"
#include "wizard/texts/wizard_tables.h"

namespace krt550 {

/// The texts and tables of the two text files in the wizard directory. Each file is read once, on the first query that
/// needs it; while it cannot be opened, is no regular file or has more than 256 MB, every query says so and answers
/// "not found". Lines that are refused are told once, with their numbers.
///
/// Queries with a bool result give their out values only when it is true, unless they say otherwise. All texts are
/// those of language column 0.
class CWizardTextStore {
public:
    CWizardTextStore() = default;
    CWizardTextStore(const CWizardTextStore&) = delete;
    CWizardTextStore& operator=(const CWizardTextStore&) = delete;

    /// The module-wide store.
    static CWizardTextStore& Instance();

    // The wizard text file.

    /// Reads the file if that has not been done yet. True when the store holds it.
    bool EnsureWizardTexts();

    QString GetToolTip(quint16 reg);
    QString GetParameterName(quint16 reg);
    QString GetMacroDescription(quint16 macro);
    /// Register texts that depend on a macro, in file order.
    bool GetMacroDependentRegisters(quint16 macro, QStringList& registerTexts);

    bool HasValueTexts(const QString& registerText);
    /// `text` becomes "N/A" when the value has none.
    bool GetValueText(const QString& registerText, quint16 value, QString& text);
    /// The first value in the order of GetAllValueTexts whose text is `text`, letter case included.
    bool GetValueOfText(const QString& registerText, const QString& text, quint16& value);
    /// In the order of drop-down lists: grouped by (value / 16) % 17, inside a group in file order.
    bool GetAllValueTexts(const QString& registerText, QList<ValueText>& texts);

    /// Update period in milliseconds; 0 when there is none.
    bool GetUpdatePeriod(int key, int& period);
    /// Whether every register with a start condition for the step has one of its allowed values. Registers and values
    /// are parallel lists; lists of different lengths never hold. True for a step without a condition.
    bool StartConditionHolds(quint16 step, const QList<quint16>& registers, const QList<quint16>& values);
    bool GetStartConditionRegisters(quint16 step, QList<quint16>& registers);

    bool GetSpeedResponse(SpeedResponse& response);
    /// All records of a slider index, in file order.
    bool GetSliderValues(quint16 index, QList<SliderValue>& values);
    /// The records of all indices, in file order.
    const std::vector<SliderValue>& GetAllSliderValues();
    bool GetFieldbusDefaults(const QString& moduleType, QList<RegisterValue>& defaults);
    bool GetGainAdjustUp(GainAdjustment& adjustment);
    bool GetGainAdjustDown(GainAdjustment& adjustment);

    /// Name of a signal; "Other (value)" when it has none.
    QString GetAOName(quint16 value);
    /// Name of a source; "Other (index,bit)" when it has none.
    QString GetDOName(quint16 index, quint16 bit);
    IndexList GetAOList();
    IndexList GetDOList();
    IndexList GetDataSetReceiveList();
    IndexList GetDataSetTransmitList();
    IndexList GetMailBoxReceiveList();
    IndexList GetMailBoxTransmitList();

    /// What digital inputs (1 to 8) and analogue inputs (1 to 4) can be tied to; an entry without a name is "? (N/A)".
    const CConnectionTable& GetDIConnections();
    const CConnectionTable& GetAIConnections();

    // The configurable-assistant file.

    bool EnsureConfigurableTexts();
    QString GetConfigurableName();
    bool GetConfigurableRow(int number, ConfigurableRow& row);
    bool HasConfigurableValueTexts(const QString& registerText);
    bool GetConfigurableValueText(const QString& registerText, quint16 value, QString& text);
    bool GetAllConfigurableValueTexts(const QString& registerText, QList<ValueText>& texts);

private:
    template <auto ReadLine, class Tables>
    bool Ensure(bool& loaded, Tables& tables, const QString& fileName, const QString& failure);
    QString TextOf(const CTextTable& table, quint32 key);
    IndexList ListOf(const CTextTable& table);

    WizardTables m_wizard;
    std::optional<CConnectionTable> m_digitalInputs;
    std::optional<CConnectionTable> m_analogueInputs;
    ConfigurableTables m_configurable;
    bool m_wizardLoaded = false;
    bool m_configurableLoaded = false;
    bool m_reporting = false; ///< a message about a file is on the screen
};

} // namespace krt550
