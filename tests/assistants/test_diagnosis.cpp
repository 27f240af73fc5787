#include "tests/assistants/tuning_drive.h"
#include "tests/support/message_boxes.h"
#include "tests/support/robot.h"

#include "wizard/diagnosis/diagnosis_dialog.h"
#include "wizard/diagnosis/fault_format.h"
#include "wizard/diagnosis/fault_record.h"
#include "wizard/resources/module_resources.h"

namespace krt550 {
namespace {

/// Value controls of the dialog's eleven rows, and their units'.
constexpr int kValues[] = {434, 427, 428, 436, 442, 445, 449, 453, 458, 462, 464};
constexpr int kUnits[] = {375, 584, 585, 382, 388, 395, 402, 409, 413, 417, 422};

/// Unit texts "u0", "u1" ...
class UnitTexts : public CSAPDriveTexts {
public:
    bool GetTextForParameterUnit(int, int, int code, QString& text) const override {
        text = QString("u%1").arg(code);
        return true;
    }
};

class DiagnosisDrive : public TuningDrive {
public:
    CSAPDriveTexts* GetDriveTexts() override { return hasTexts ? &m_texts : nullptr; }
    bool hasTexts = true;

private:
    UnitTexts m_texts;
};

/// A complete record: each value is 100 + its row, unsigned, in unit u<row>.
QByteArray CompleteRecord() {
    QByteArray record(6, 0);
    record[0] = 10;
    for (int row = 0; row < 11; ++row) {
        if (row == 0)
            record += QByteArray(2, 0);
        record += QByteArray(1, 0) + static_cast<char>(100 + row) + QByteArray(1, 0) + char(1) + char(0) +
                  static_cast<char>(row);
    }
    return record;
}

class Diagnosis : public testing::Test {
protected:
    Diagnosis() {
        m_drive.faultBufferError = 0;
        m_drive.faultRecord = CompleteRecord();
        SetDiagnosisDrive(&m_drive);
    }
    ~Diagnosis() override { SetDiagnosisDrive(nullptr); }

    /// Fetches the record, shows the dialog and returns its values, "-" and all, joined by blanks.
    QString Show() {
        QString message;
        ReadFaultRecord(message);
        QString shown;
        CDiagnosisDialog dialog;
        QTimer::singleShot(0, &dialog, [&] {
            Robot::WhenInFront(122, [&] {
                for (const int id : kValues)
                    shown += Robot::Text(id) + ' ';
                for (const int id : kUnits)
                    shown += Robot::Text(id) + ' ';
                Robot::Press(2);
            });
        });
        EXPECT_EQ(dialog.DoModal(), 2);
        return shown.simplified();
    }

    CModuleResources m_resources;
    ResourceScope m_scope{m_resources};
    DiagnosisDrive m_drive;
    MessageBoxes m_boxes;
};

TEST(FaultFormat, ShowsEachDataType) {
    struct {
        int type;
        const char* bytes;
        QString text;
    } const cases[] = {
        {0, "ff38", "65336"},
        {1, "ff38", "-200"},
        {5, "ff38", "-2.00"},
        {5, "0001", "0.01"},
        {12, "0412", "412h"},
        {12, "ff0a", "FF0Ah"},
        {19, "00bc614e", "00:20:34"},
        {19, "ffffffff", "119:18:16"},
        {0, "00120005", "5"},
        {7, "1234", ""},
        {255, "1234", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatFaultValue(c.type, QByteArray::fromHex(c.bytes)), c.text) << c.type << ' ' << c.bytes;
}

TEST_F(Diagnosis, FetchesTheRecordAndEndsTheServiceMode) {
    const QString error = "The drive did not answer in time.";
    struct {
        quint16 code;
        bool unwritable;
        bool result;
        QString message;
    } const cases[] = {{0, false, true, ""}, {2, false, false, error}, {0, true, false, ""}, {2, true, false, error}};
    for (const auto& c : cases) {
        m_drive.faultBufferError = c.code;
        m_drive.unwritable.clear();
        if (c.unwritable) {
            m_drive.unwritable.insert(9906);
            m_boxes.Expect("Writing parameter 99.06 Service mode failed: simulated failure");
        }
        m_drive.words[9906] = 1;
        QString message;
        m_drive.TakeLog();
        EXPECT_EQ(ReadFaultRecord(message), c.result);
        EXPECT_EQ(message, c.message);
        EXPECT_EQ(m_drive.TakeLog(), (QStringList{"read fault buffer", "write 9906=0"}));
        EXPECT_EQ(GetFaultRecord().size(), 74) << "whatever arrived is kept";
    }
    QString any;
    for (const int size : {21, 22}) {
        m_drive.faultRecord = QByteArray(size, 1);
        m_boxes.Expect("Writing parameter 99.06 Service mode failed: simulated failure");
        ReadFaultRecord(any);
        EXPECT_EQ(HasActiveFaultCode(), size == 22);
    }
    SetDiagnosisDrive(nullptr);
    QString message = "as it was";
    EXPECT_FALSE(ReadFaultRecord(message));
    EXPECT_EQ(message, "as it was");
    EXPECT_EQ(GetUnitText(3), "");
}

TEST_F(Diagnosis, FetchesTheRecordOfADriveWithoutServiceMode) {
    QString message;
    ReadFaultRecord(message);
    m_drive.TakeLog();
    FakeDrive drive({});
    drive.faultBufferError = 0;
    drive.faultRecord = CompleteRecord();
    drive.hasRoot = false;
    SetDiagnosisDrive(&drive);
    EXPECT_TRUE(ReadFaultRecord(message));
    EXPECT_EQ(m_drive.TakeLog(), QStringList()) << "the former drive's service mode may be gone";
    drive.hasRoot = true;
    const QString missing = "Parameter 9906 not found from drive.\n\nUnable to use the specified parameter.";
    m_boxes.Expect(missing).WithIcon(QMessageBox::Critical);
    message.clear();
    EXPECT_TRUE(ReadFaultRecord(message));
    EXPECT_EQ(message, missing);
    EXPECT_EQ(drive.TakeLog(), QStringList({"read fault buffer", "read fault buffer"}));
}

TEST_F(Diagnosis, ShowsACompleteRecord) {
    m_drive.words[911] = 7;
    EXPECT_EQ(Show(), "100 101 102 103 104 105 106 107 108 109 Motor turned u0 u1 u2 u3 u4 u5 u6 u7 u8 u9 u10");
    m_drive.hasTexts = false;
    m_drive.faultRecord[6 + 4 + 1] = 0;  // tag of the fault time: a field without value
    m_drive.faultRecord[68 + 2 + 1] = 0; // tag of the diagnosis, which is shown all the same
    EXPECT_EQ(Show(), "- 101 102 103 104 105 106 107 108 109 Motor turned -");
}

// Every length at which a record can break off: the rows before it are shown, the others keep the layout's empty
// fields.
TEST_F(Diagnosis, ShowsWhatATruncatedRecordStillHolds) {
    const QByteArray complete = CompleteRecord();
    for (int size = 0; size <= 74; ++size) {
        for (const char state : {char(10), char(3), char(5)}) {
            m_drive.faultRecord = complete.left(size);
            if (size > 0) {
                m_drive.faultRecord[0] = state;
                if (state == 3)
                    m_boxes.Expect("Short fault description received.").WithIcon(QMessageBox::NoIcon);
                if (state == 5)
                    m_boxes.Expect("Fields missing from fault information.").WithIcon(QMessageBox::NoIcon);
            }
            const int rows = size < 14 ? 0 : 1 + (size - 14) / 6;
            QStringList expected;
            for (int row = 0; row < rows; ++row)
                expected += row == 10 ? "No message" : QString::number(100 + row);
            for (int row = 0; row < rows; ++row)
                expected += QString("u%1").arg(row);
            EXPECT_EQ(Show(), expected.join(' ')) << size << ' ' << int(state);
        }
    }
}

} // namespace
} // namespace krt550
