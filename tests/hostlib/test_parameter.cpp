#include "hostlib/tolvbo32/parameter.h"
#include "hostlib/tolvbo32/parameter_group.h"
#include "hostlib/tolvbo32/parameter_link.h"
#include "tests/support/descriptions.h"

namespace krt550 {
namespace {

/// A handful of words, and a switch that breaks the line to them.
class CWordLink : public CParameterLink {
public:
    bool ReadWord(quint16 reg, quint16& word) override {
        if (m_broken)
            return false;
        word = m_words[reg];
        return true;
    }
    bool WriteWord(quint16 reg, quint16 word) override {
        if (!m_broken)
            m_words[reg] = word;
        return !m_broken;
    }
    QString LastErrorText() const override { return QStringLiteral("The line is broken."); }

    std::map<quint16, quint16> m_words;
    bool m_broken = false;
};

class ParameterTest : public testing::Test {
protected:
    CWordLink m_link;
    CParameterGroup m_group{nullptr, QStringLiteral("Limits"), QStringLiteral("20")};
    CParameter m_limit{&m_group, Number(2005, "Torque limit", 1, -100, 100), &m_link};

    static std::string Error(const CParameter& parameter) { return parameter.GetLastError(0).toStdString(); }
};

TEST_F(ParameterTest, SettersChangeTheObjectWritesTheDriveAndFailuresNeither) {
    ASSERT_TRUE(m_limit.SetStringValue(QStringLiteral("-12,5")));
    EXPECT_EQ(m_limit.GetValue(), 0xFF83);
    EXPECT_EQ(m_limit.GetActualValue(), 0) << "not written yet";
    EXPECT_TRUE(m_link.m_words.empty());
    ASSERT_TRUE(m_limit.WriteToDrive(0));
    EXPECT_EQ(m_link.m_words[2005], 0xFF83);
    EXPECT_EQ(m_limit.GetActualValue(), 0xFF83);
    EXPECT_FALSE(m_limit.SetValue(1001, false) || m_limit.SetValue(QStringLiteral("fast")));
    EXPECT_NE(Error(m_limit).find("20.05 Torque limit"), std::string::npos) << Error(m_limit);
    m_link.m_broken = true;
    ASSERT_TRUE(m_limit.SetValue(300, false));
    EXPECT_FALSE(m_limit.ReadFromDrive() || m_limit.WriteToDrive(0));
    EXPECT_EQ(Error(m_limit), "Writing parameter 20.05 Torque limit failed: The line is broken.");
    EXPECT_EQ(m_limit.GetValue(), 300) << "what was set is still there to be written again";
    EXPECT_EQ(m_limit.GetActualValue(), 0xFF83);
}

TEST_F(ParameterTest, WithoutLinkOrWriteAccessTheDriveIsNotTouched) {
    CParameter loose(&m_group, Number(2006, "Loose"), nullptr);
    EXPECT_FALSE(loose.ReadFromDrive());
    EXPECT_FALSE(loose.WriteToDrive(0));
    EXPECT_NE(Error(loose).find("No drive is connected"), std::string::npos);

    CParameter speed(&m_group, Signal(104, "Motor speed", "rpm"), &m_link);
    ASSERT_TRUE(speed.SetValue(7, false)) << "the object itself may be set";
    EXPECT_FALSE(speed.WriteToDrive(0));
    EXPECT_NE(Error(speed).find("read-only"), std::string::npos);
    EXPECT_TRUE(m_link.m_words.empty());
}

TEST_F(ParameterTest, ValueListIsHandedOutAsANewArrayEachTime) {
    const CParameter list(&m_group, List(2007, "Mode", {{3, "Fast"}, {1, "#excl#"}, {0, "Slow"}}), &m_link);
    const std::unique_ptr<QStringList> first(list.GetValueList());
    const std::unique_ptr<QStringList> second(list.GetValueList());
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_EQ(*first, QStringList({"Fast", "#excl#", "Slow"})) << "in file order, excluded entries included";
    EXPECT_EQ(list.GetValueListType(), 1);
    EXPECT_EQ(m_limit.GetValueList(), nullptr);
    EXPECT_EQ(m_limit.GetValueListType(), 0);
}

} // namespace
} // namespace krt550
