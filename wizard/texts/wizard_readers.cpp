#include "hostlib/text_files/text_fields.h"
#include "wizard/texts/wizard_tables.h"

#include <algorithm>
#include <cmath>

namespace krt550 {
namespace {

using Reader = void (*)(WizardTables&, CTextTokenizer&);

/// Number, texts.
template <CTextTable WizardTables::*Table> void ReadTexts(WizardTables& tables, CTextTokenizer& fields) {
    const quint16 key = WordOfField(fields.NextFilledToken());
    (tables.*Table).Read(key, fields.Rest());
}

void ReadValueText(WizardTables& tables, CTextTokenizer& fields) {
    tables.valueTexts.ReadLine(fields);
}

/// Index, bit, texts.
void ReadDigitalOutput(WizardTables& tables, CTextTokenizer& fields) {
    const quint32 index = WordOfField(fields.NextFilledToken());
    const quint32 bit = WordOfField(fields.NextFilledToken());
    tables.digitalOutputs.Read((index << 16) | bit, fields.Rest());
}

std::string WithLineFeeds(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool lineFeed = text.substr(at, 2) == "\\n";
        result += lineFeed ? '\n' : text[at];
        at += lineFeed ? 1 : 0;
    }
    return result;
}

/// Macro, texts in which \n stands for a line feed. No line feed can come from inside a line, so replacing them before
/// the line is split changes nothing else.
void ReadMacroDescription(WizardTables& tables, CTextTokenizer& fields) {
    const quint16 macro = WordOfField(fields.NextFilledToken());
    tables.macroDescriptions.Read(macro, WithLineFeeds(fields.Rest()));
}

/// Macro, any number of register texts.
void ReadMacroRegisters(WizardTables& tables, CTextTokenizer& fields) {
    const quint16 macro = WordOfField(fields.NextFilledToken());
    for (std::string_view text = fields.NextFilledToken(); !text.empty(); text = fields.NextFilledToken())
        tables.macroRegisters[macro].push_back(tables.arena.Keep(text));
}

/// Selector, for analogue inputs the target, one selecting value for each input, disconnect value, names.
template <std::vector<InputConnection> WizardTables::*Table, int Inputs, bool HasTarget>
void ReadInput(WizardTables& tables, CTextTokenizer& fields) {
    const std::string_view selector = fields.NextFilledToken();
    if (selector.empty())
        return;
    InputConnection connection;
    connection.selector = WordOfField(selector);
    if (HasTarget)
        connection.target = WordOrNone(fields.NextToken());
    connection.select.fill(kNoWord);
    for (int input = 0; input < Inputs; ++input)
        connection.select[static_cast<std::size_t>(input)] = WordOrNone(fields.NextToken());
    connection.disconnect = WordOrNone(fields.NextFilledToken());
    for (std::string_view name = fields.NextFilledToken(); !name.empty(); name = fields.NextFilledToken())
        connection.names.push_back(tables.arena.Keep(name));
    (tables.*Table).push_back(std::move(connection));
}

/// Step, pairs of a register and the list of its allowed values.
void ReadStartCondition(WizardTables& tables, CTextTokenizer& fields) {
    const quint16 step = WordOfField(fields.NextFilledToken());
    while (fields.HasMoreTokens()) {
        const quint16 reg = WordOfField(fields.NextFilledToken());
        CTextTokenizer items(fields.NextFilledToken(), ',');
        while (items.HasMoreTokens()) {
            std::string item(items.NextToken());
            std::erase(item, '"');
            if (!item.empty())
                tables.startConditions.Allow(step, reg, WordOfField(item));
        }
    }
}

/// Key, period; the last field that is not empty counts.
void ReadUpdatePeriod(WizardTables& tables, CTextTokenizer& fields) {
    const int key = NumberOfField(fields.NextFilledToken());
    for (std::string_view period = fields.NextFilledToken(); !period.empty(); period = fields.NextFilledToken())
        tables.updatePeriods[key] = NumberOfField(period);
}

void Refuse(WizardTables& tables, std::string_view field, const QString& what) {
    tables.refusal = QStringLiteral("%1 is not %2").arg(TextOfField(field), what);
}

/// Step, minimum, maximum; the last field that is not empty is the maximum.
void ReadSpeedResponse(WizardTables& tables, CTextTokenizer& fields) {
    std::vector<int> numbers;
    for (std::string_view field = fields.NextFilledToken(); !field.empty(); field = fields.NextFilledToken()) {
        if (!IsNumberInRange(field))
            return Refuse(tables, field, QStringLiteral("a number from -2147483647 to 2147483647"));
        numbers.push_back(NumberOfField(field));
    }
    if (numbers.size() > 2)
        tables.speedResponse = SpeedResponse{numbers[0], numbers[1], numbers.back()};
}

void ReadSliderValue(WizardTables& tables, CTextTokenizer& fields) {
    const quint16 index = WordOrNone(fields.NextToken());
    const quint16 reg = WordOrNone(fields.NextToken());
    const std::string_view value = fields.NextToken();
    if (!value.empty())
        tables.sliderValues.push_back({index, reg, WordOfField(value)});
}

/// Number, module type, fieldbus key; nothing asks for the number.
void ReadFieldbusType(WizardTables& tables, CTextTokenizer& fields) {
    fields.NextToken();
    const std::string_view moduleType = fields.NextToken();
    const std::string_view key = fields.NextToken();
    if (!key.empty())
        tables.fieldbusTypes.push_back({tables.arena.Keep(moduleType), tables.arena.Keep(key)});
}

template <std::size_t Fieldbus> void ReadFieldbusDefault(WizardTables& tables, CTextTokenizer& fields) {
    const quint16 reg = WordOrNone(fields.NextToken());
    const std::string_view value = fields.NextToken();
    if (!value.empty())
        tables.fieldbusDefaults[Fieldbus].push_back({reg, WordOfField(value)});
}

/// Number, factor. Each line takes the former record away.
template <std::optional<GainAdjustment> WizardTables::*Gain>
void ReadGain(WizardTables& tables, CTextTokenizer& fields) {
    const quint16 number = WordOrNone(fields.NextToken());
    const std::string_view factor = fields.NextToken();
    (tables.*Gain).reset();
    if (factor.empty())
        return;
    if (!std::isfinite(FactorOfField(factor)))
        return Refuse(tables, factor, QStringLiteral("a factor from -3e38 to 3e38"));
    tables.*Gain = GainAdjustment{number, FactorOfField(factor)};
}

struct KeyReader {
    std::string_view key;
    Reader read;
};

/// The keys with the most lines come first.
constexpr KeyReader kReaders[] = {
    {"TOOLTIP", ReadTexts<&WizardTables::toolTips>},
    {"PAN", ReadTexts<&WizardTables::parameterNames>},
    {"VAN", ReadValueText},
    {"DO", ReadDigitalOutput},
    {"AO", ReadTexts<&WizardTables::analogueOutputs>},
    {"DI", ReadInput<&WizardTables::digitalInputs, 8, false>},
    {"AI", ReadInput<&WizardTables::analogueInputs, 4, true>},
    {"MACRODESC", ReadMacroDescription},
    {"MACRODEPPAR", ReadMacroRegisters},
    {"ENABLESTART", ReadStartCondition},
    {"UPDATE", ReadUpdatePeriod},
    {"SPEEDRESP", ReadSpeedResponse},
    {"SLIDERVAL", ReadSliderValue},
    {"STRINGFBTYPE", ReadFieldbusType},
    {kFieldbusKeys[0], ReadFieldbusDefault<0>},
    {kFieldbusKeys[1], ReadFieldbusDefault<1>},
    {kFieldbusKeys[2], ReadFieldbusDefault<2>},
    {kFieldbusKeys[3], ReadFieldbusDefault<3>},
    {kFieldbusKeys[4], ReadFieldbusDefault<4>},
    {kFieldbusKeys[5], ReadFieldbusDefault<5>},
    {"GAINADJUP", ReadGain<&WizardTables::gainUp>},
    {"GAINADJDOWN", ReadGain<&WizardTables::gainDown>},
    {"VANMBOXTRANSMIT", ReadTexts<&WizardTables::mailBoxTransmit>},
    {"VANMBOXRECEIVE", ReadTexts<&WizardTables::mailBoxReceive>},
    {"VANRECEIVE", ReadTexts<&WizardTables::dataSetReceive>},
    {"VANTRANSMIT", ReadTexts<&WizardTables::dataSetTransmit>},
};
static_assert(std::size(kReaders) == 26);

} // namespace

void ReadWizardLine(WizardTables& tables, std::string_view line) {
    CTextTokenizer fields(line, '\t');
    const std::string_view key = fields.NextToken();
    if (!fields.HasMoreTokens())
        return;
    const auto found = std::ranges::find(kReaders, key, &KeyReader::key);
    if (found != std::end(kReaders))
        found->read(tables, fields);
}

} // namespace krt550
