#include "drive/fault_capture.h"
#include "drive/fault_record.h"
#include "drive/register_file.h"
#include "drive/unit_texts.h"
#include "tests/drive/drive_sample.h"

namespace krt550 {
namespace {

TEST(FaultRecord, LaysItsFieldsOutMostSignificantByteFirst) {
    FaultFields fields;
    for (std::size_t i = 0; i < fields.size(); ++i)
        fields[i] = {0xA1B2C300U + static_cast<quint32>(i), static_cast<quint16>(0x1100 + i), RecordType::Hexadecimal,
                     7};
    const QByteArray record = EncodeFaultRecord(RecordState::Complete, fields);
    ASSERT_EQ(record.size(), kFaultRecordSize);
    EXPECT_EQ(record.first(6).toHex(), "0a0000000000");
    EXPECT_EQ(record.mid(6, 8).toHex(), "a1b2c30011000c07") << "the time has four value bytes";
    for (qsizetype i = 1; i < 11; ++i)
        EXPECT_EQ(record.mid(8 + 6 * i, 6), QByteArray::fromHex("c300"
                                                                "1100"
                                                                "0c07")
                                                .replace(1, 1, QByteArray(1, char(i)))
                                                .replace(3, 1, QByteArray(1, char(i))))
            << i;
}

TEST(FaultRecord, CapturesTheRegistersInTheirUnits) {
    CRegisterFile registers(test::SampleDrive());
    registers.SetNumber(reg::kArmatureVoltage, -230);
    registers.SetNumber(reg::kFieldCurrent, 1.07);
    registers.SetWord(reg::kUsedControlWord, 0x047F);
    registers.SetWord(reg::kDiagnosis, 61);
    const qint64 kDay = 24LL * 60 * 60 * 1000;
    const FaultFields fields = CaptureFault(registers, 104, 3 * kDay + 1234567);

    CUnitTexts units;
    const struct {
        int place;
        quint32 value;
        quint16 tag;
        RecordType type;
        const char* unit;
    } expected[] = {
        {0, 12345670, 601, RecordType::Time, ""},      {1, 104, 601, RecordType::Unsigned, ""},
        {2, 3, 601, RecordType::Unsigned, "d"},        {3, 0xFF1A, 114, RecordType::Signed, "V"},
        {4, 0, 0, RecordType::Unsigned, ""}, // this drive does not measure its mains voltage
        {6, 107, 130, RecordType::Hundredths, "A"},    {7, 0, 104, RecordType::Signed, "rpm"},
        {9, 0x047F, 704, RecordType::Hexadecimal, ""}, {10, 61, 911, RecordType::Unsigned, ""},
    };
    for (const auto& e : expected) {
        const RecordField& field = fields.at(static_cast<std::size_t>(e.place));
        QString unit;
        EXPECT_TRUE(units.GetTextForParameterUnit(0, 0, field.unitCode, unit));
        EXPECT_EQ(field.value, e.value) << e.place;
        EXPECT_EQ(field.tag, e.tag) << e.place;
        EXPECT_EQ(field.type, e.type) << e.place;
        EXPECT_EQ(unit.toStdString(), e.unit) << e.place;
    }
}

} // namespace
} // namespace krt550
