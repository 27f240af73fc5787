#include "tests/params/row_fixture.h"

#include "hostlib/tolvbo32/parameter.h"
#include "wizard/params/parameter_access.h"
#include "wizard/params/validation.h"

namespace krt550 {
namespace {

ParameterDescription Typed(int dataType, double minimum, double maximum) {
    ParameterDescription parameter;
    parameter.reg = 1205;
    parameter.name = "Value";
    parameter.dataType = static_cast<DataType>(dataType);
    parameter.minimum = minimum;
    parameter.maximum = maximum;
    return parameter;
}

QString TypeMessage(const char* type, int value) {
    return QString("Value entered for parameter 1205 is invalid for %1 data (value entered was %2).")
        .arg(type)
        .arg(value);
}

using Validation = RowFixture;

TEST_F(Validation, GoesByLimitsFirstAndByDataTypeWithoutThem) {
    const QString outside = "For parameter 1205 given value was invalid.\nPlease input valid value.";
    struct {
        int dataType;
        double minimum;
        double maximum;
        const char* text;
        QString box; ///< empty: valid
    } const cases[] = {
        {2, 10, 20, " 12 ", ""},
        {2, 10, 20, "25", outside},
        {1, 10, 20, "25", outside},
        {99, 10, 20, "25", outside},
        {2, 10, 20, "", outside},
        {2, -5, 5, "", ""},
        {2, -5, 5, "abc9", "For parameter 1205 \"abc9\"*"},
        {8, 0, 0, "12abc", "For parameter 1205 \"12abc\"*"},
        {1, 0, 0, "255", ""},
        {1, 0, 0, "0", ""},
        {1, 0, 0, "256", TypeMessage("unsigned 8-bit", 256)},
        {1, 0, 0, "-0.7", TypeMessage("unsigned 8-bit", 0)},
        {2, 0, 0, "-32768", ""},
        {2, 0, 0, "32767.5", TypeMessage("signed 16-bit", 32767)},
        {8, 0, 0, "65535", ""},
        {8, 0, 0, "-1", TypeMessage("unsigned 16-bit", -1)},
        {8, 0, 0, "1e12", TypeMessage("unsigned 16-bit", 2147483647)},
        {4, 0, 0, "1000000", ""},
        {99, 0, 0, "1", "Unknown datatype!"},
        {99, 0, 0, "0", ""},
    };
    for (const auto& c : cases) {
        FakeDrive drive({Typed(c.dataType, c.minimum, c.maximum)});
        const CParameter* typed = drive.Root().FindChildByRegister("1205");
        if (!c.box.isEmpty())
            m_boxes.Expect(c.box);
        QString text = c.text;
        EXPECT_EQ(ValidateValueText(typed, text), c.box.isEmpty()) << c.dataType << ' ' << c.text;
        EXPECT_FALSE(text.contains(','));
    }
}

// What the parameter cannot hold is refused, not rounded: "2,100" once became 2 rpm.
TEST_F(Validation, RefusesWhatTheParameterCannotHold) {
    const QString whole = "For parameter 1205 \"%1\" cannot be used.\nPlease input a whole number, such as 1500. "
                          "Thousands are not separated.";
    const QString oneDecimal = "For parameter 1205 \"%1\" cannot be used.\nPlease input a number with at most 1 digit "
                               "behind the point or comma, such as 12.5. Thousands are not separated.";
    struct {
        int decimals;
        QString accepted; ///< blank-separated
        QString refused;
    } const cases[] = {{0, "2100 +7 -7 7. 007", "2,100 2.100 12.5 12,5 12rpm 1e3 0x7 - 7,0"},
                       {1, "12,5 12.5 .5 12 -0,5", "2,100 2.100 12.55 1,5,5 1.000,5 12.5V ."}};
    for (const auto& c : cases) {
        ParameterDescription description = Typed(2, -3000, 3000);
        description.decimals = c.decimals;
        FakeDrive drive({description});
        const CParameter* typed = drive.Root().FindChildByRegister("1205");
        for (QString text : c.accepted.split(' '))
            EXPECT_TRUE(ValidateValueText(typed, text)) << text.toStdString();
        for (QString text : c.refused.split(' ')) {
            m_boxes.Expect((c.decimals ? oneDecimal : whole).arg(text)).WithIcon(QMessageBox::Warning);
            EXPECT_FALSE(ValidateValueText(typed, text));
        }
    }
}

TEST_F(Validation, LeavesTheControlsTextAsItIs) {
    QLineEdit edit("1,5");
    EXPECT_TRUE(ValidateControlValue(m_drive.Root().FindChildByRegister("101"), &edit));
    EXPECT_EQ(edit.text(), "1,5");
    EXPECT_FALSE(ValidateControlValue(nullptr, &edit));
    QString any = "anything";
    EXPECT_TRUE(ValidateValueText(m_drive.Root().FindChildByRegister("201"), any));
}

} // namespace
} // namespace krt550
