// Every key of the wizard text file through the query that reads it.
#include "tests/texts/text_fixture.h"

namespace krt550 {
namespace {

TEST_F(TextFixture, TextsByNumber) {
    WriteWizardTexts("; comment\tTOOLTIP\n"
                     "TOOLTIP\t9906\tService mode\n"
                     "PAN\t9906\told name\nPAN\t9906\tnew\n"
                     "PAN\t-1\twrapped\n"
                     "MACRODESC\t3\tFirst\\nsecond\\\\n third\\\n"
                     "MACRODEPPAR\t3\t\t9906\t\t801\nMACRODEPPAR\t3\t2005\n");
    EXPECT_EQ(m_store.GetToolTip(9906), U("Service mode"));
    EXPECT_EQ(m_store.GetToolTip(9907), QString());
    EXPECT_EQ(m_store.GetParameterName(9906), U("new"));
    EXPECT_EQ(m_store.GetParameterName(65535), U("wrapped"));
    EXPECT_EQ(m_store.GetMacroDescription(3), U("First\nsecond\\\n third\\"));
    EXPECT_EQ(m_store.GetMacroDescription(4), QString());
    QStringList registers;
    EXPECT_TRUE(m_store.GetMacroDependentRegisters(3, registers));
    EXPECT_EQ(registers, (QStringList{U("9906"), U("801"), U("2005")}));
    EXPECT_FALSE(m_store.GetMacroDependentRegisters(4, registers));
    EXPECT_TRUE(registers.isEmpty());
}

TEST_F(TextFixture, ValueTexts) {
    WriteWizardTexts("VAN\t9906\t3\tthree\nVAN\t9906\t1\tone\nVAN\t9906\t20\ttwenty\n"
                     "VAN\t801\t40\tforty\nVAN\t801\t5\tfive\nVAN\t801\t272\twraps to group 0\nVAN\t801\t40\tForty\n"
                     "VAN\t700\t1\n");
    QList<ValueText> texts;
    EXPECT_TRUE(m_store.GetAllValueTexts(U("9906"), texts));
    EXPECT_EQ(texts, (QList<ValueText>{{3, U("three")}, {1, U("one")}, {20, U("twenty")}}));
    EXPECT_TRUE(m_store.GetAllValueTexts(U("801"), texts));
    EXPECT_EQ(texts, (QList<ValueText>{{5, U("five")}, {272, U("wraps to group 0")}, {40, U("Forty")}}));
    EXPECT_FALSE(m_store.GetAllValueTexts(U("700"), texts));
    EXPECT_TRUE(texts.isEmpty());

    EXPECT_TRUE(m_store.HasValueTexts(U("801")));
    EXPECT_FALSE(m_store.HasValueTexts(U("700")));
    QString text;
    EXPECT_TRUE(m_store.GetValueText(U("9906"), 20, text));
    EXPECT_EQ(text, U("twenty"));
    EXPECT_FALSE(m_store.GetValueText(U("9906"), 2, text));
    EXPECT_EQ(text, U("N/A"));
    quint16 value = 0;
    EXPECT_TRUE(m_store.GetValueOfText(U("801"), U("Forty"), value));
    EXPECT_EQ(value, 40);
    EXPECT_FALSE(m_store.GetValueOfText(U("801"), U("forty"), value));
    EXPECT_FALSE(m_store.GetValueOfText(U("700"), QString(), value));
}

TEST_F(TextFixture, UpdatePeriods) {
    WriteWizardTexts("UPDATE\t4\t1000\nUPDATE\t101\t500\t\t250\t\nUPDATE\t4\t2000\nUPDATE\t5\nUPDATE\t6\t0\n");
    const std::tuple<int, bool, int> cases[] = {{4, true, 2000}, {101, true, 250}, {5, false, 0}, {6, true, 0}};
    for (const auto& [key, found, expected] : cases) {
        int period = -1;
        EXPECT_EQ(m_store.GetUpdatePeriod(key, period), found) << key;
        EXPECT_EQ(period, expected) << key;
    }
}

TEST_F(TextFixture, StartConditions) {
    WriteWizardTexts("ENABLESTART\t4\t801\t1,\"2\",,3\t802\t-1\nENABLESTART\t4\t801\t7\nENABLESTART\t5\t901\t,\"\"\n");
    QList<quint16> registers;
    EXPECT_TRUE(m_store.GetStartConditionRegisters(4, registers));
    EXPECT_EQ(registers, (QList<quint16>{801, 802}));
    EXPECT_FALSE(m_store.GetStartConditionRegisters(5, registers)) << "a list without values is no condition";
    EXPECT_TRUE(registers.isEmpty());

    const struct {
        quint16 step;
        QList<quint16> registers;
        QList<quint16> values;
        bool holds;
    } cases[] = {
        {4, {801, 802}, {1, 65535}, true},
        {4, {801, 802}, {2, 65535}, true},
        {4, {801}, {3}, true},
        {4, {801}, {7}, true},
        {4, {801}, {0}, false},
        {4, {801, 802}, {1, 1}, false},
        {4, {999}, {5}, true},
        {4, {}, {}, true},
        {4, {801}, {}, false},
        {5, {901}, {5}, true},
        {6, {801}, {0}, true},
        {6, {801}, {0, 1}, false},
    };
    for (const auto& test : cases)
        EXPECT_EQ(m_store.StartConditionHolds(test.step, test.registers, test.values), test.holds) << &test - cases;
}

TEST_F(TextFixture, SpeedResponseAndSlider) {
    WriteWizardTexts("SPEEDRESP\t10\t0\t100\nSPEEDRESP\t7\t8\n"
                     "SLIDERVAL\t4\t2403\t500\nSLIDERVAL\t\t\t1\nSLIDERVAL\t4\t2409\t\nSLIDERVAL\t4\t2409\t-2\t9\n");
    SpeedResponse response;
    EXPECT_TRUE(m_store.GetSpeedResponse(response));
    EXPECT_EQ(response, (SpeedResponse{10, 0, 100})) << "a line without a third number changes nothing";
    QList<SliderValue> values;
    EXPECT_TRUE(m_store.GetSliderValues(4, values));
    EXPECT_EQ(values, (QList<SliderValue>{{4, 2403, 500}, {4, 2409, 65534}}));
    EXPECT_TRUE(m_store.GetSliderValues(65535, values));
    EXPECT_EQ(values, (QList<SliderValue>{{65535, 65535, 1}}));
    EXPECT_FALSE(m_store.GetSliderValues(5, values));
    EXPECT_TRUE(values.isEmpty());
}

TEST_F(TextFixture, FieldbusDefaults) {
    WriteWizardTexts("PROFIBUS\t5102\t3\nPROFIBUS\t\t4\nPROFIBUS\t5103\t\nETHERNET\t5110\t1\textra\n"
                     "STRINGFBTYPE\t1\tModule A\tPROFIBUS\nSTRINGFBTYPE\t\tModule A\tETHERNET\n"
                     "STRINGFBTYPE\t3\tModule B\tTOKENRING\nSTRINGFBTYPE\t4\tModule C\t\n");
    QList<RegisterValue> defaults;
    EXPECT_TRUE(m_store.GetFieldbusDefaults(U("Module A"), defaults));
    EXPECT_EQ(defaults, (QList<RegisterValue>{{5102, 3}, {65535, 4}, {5110, 1}}));
    EXPECT_TRUE(m_store.GetFieldbusDefaults(U("Module B"), defaults));
    EXPECT_TRUE(defaults.isEmpty());
    EXPECT_FALSE(m_store.GetFieldbusDefaults(U("Module C"), defaults));
    EXPECT_FALSE(m_store.GetFieldbusDefaults(U("module a"), defaults));
}

TEST_F(TextFixture, OnlyTheLastGainLineCounts) {
    WriteWizardTexts("GAINADJUP\t1\t0.5\nGAINADJUP\t\t1.25\nGAINADJDOWN\t1\t0.5\nGAINADJDOWN\t1\t\n");
    GainAdjustment gain;
    EXPECT_TRUE(m_store.GetGainAdjustUp(gain));
    EXPECT_EQ(gain, (GainAdjustment{65535, 1.25F}));
    EXPECT_FALSE(m_store.GetGainAdjustDown(gain));
}

} // namespace
} // namespace krt550
