// Finding, opening and decoding the files.
#include "tests/texts/text_fixture.h"

#include <QDir>
#include <QStringEncoder>
#include <QTimer>

namespace krt550 {
namespace {

TEST(WizardDirectoryTest, KeepsBackslashesUntilAFileIsOpened) {
    SetWizardDirectory(QStringLiteral("C:\\Tools\\Wizard"));
    EXPECT_EQ(GetWizardDirectory(), QStringLiteral("C:\\Tools\\Wizard"));
    EXPECT_EQ(WizardFilePath(QStringLiteral("a.txt")), QStringLiteral("C:\\Tools\\Wizard\\a.txt"));
    SetWizardDirectory({});
    EXPECT_EQ(WizardFilePath(QStringLiteral("a.txt")), QStringLiteral("\\a.txt"));
    EXPECT_EQ(MachinePath(QStringLiteral("\\home\\x/y\\a.txt")), QStringLiteral("/home/x/y/a.txt"));
}

TEST_F(TextFixture, OpensAFileThroughAPathWithBackslashes) {
    WriteWizardTexts("TOOLTIP\t1\tfound\n");
    SetWizardDirectory(m_directory.path().replace(u'/', u'\\'));
    EXPECT_EQ(m_store.GetToolTip(1), QStringLiteral("found"));
}

TEST_F(TextFixture, ReportsAMissingFileOnEveryQueryUntilItIsThere) {
    const QString path = GetWizardDirectory() + QStringLiteral("\\Wzkrt550.txt");
    for (int query = 0; query < 2; ++query) {
        m_boxes.Expect(QStringLiteral("Failed to open file: ") + path).WithIcon(QMessageBox::NoIcon);
        m_boxes.Expect("Error while reading wizard texts").WithIcon(QMessageBox::Critical);
        EXPECT_EQ(m_store.GetToolTip(1), QString());
        m_boxes.Verify();
    }
    WriteWizardTexts("TOOLTIP\t1\tfound\n");
    EXPECT_EQ(m_store.GetToolTip(1), QStringLiteral("found"));
    QFile::remove(m_directory.filePath(QStringLiteral("Wzkrt550.txt")));
    EXPECT_EQ(m_store.GetToolTip(1), QStringLiteral("found")) << "once read, the file is not needed any more";
}

TEST_F(TextFixture, AQueryFromATimerAddsNoBoxesToThoseOnTheScreen) {
    bool asked = false;
    const auto ask = [&](QMessageBox&) {
        int period = 7;
        EXPECT_FALSE(m_store.GetUpdatePeriod(1, period));
        EXPECT_EQ(period, 0);
        asked = true;
    };
    m_boxes.Expect("Failed to open file: *").Then(ask);
    m_boxes.Expect("Error while reading wizard texts").Then(ask);
    EXPECT_FALSE(m_store.EnsureWizardTexts());
    EXPECT_TRUE(asked);
}

TEST_F(TextFixture, ADirectoryInPlaceOfTheFileIsReported) {
    QDir(m_directory.path()).mkdir(QStringLiteral("Wzkrt550.txt"));
    m_boxes.Expect("Failed to open file: *");
    m_boxes.Expect("Error while reading wizard texts");
    EXPECT_FALSE(m_store.EnsureWizardTexts());
}

TEST_F(TextFixture, TheTwoFilesAreLoadedApart) {
    WriteWizardTexts("VAN\t1\t2\ttwo\n");
    EXPECT_TRUE(m_store.HasValueTexts(QStringLiteral("1")));
    m_boxes.Expect(QStringLiteral("Failed to open file: ") + GetWizardDirectory() +
                   QStringLiteral("\\KRT550ConfigurableAssistant.txt"));
    m_boxes.Expect("Error while reading configurable assistant texts").WithIcon(QMessageBox::Critical);
    EXPECT_FALSE(m_store.HasConfigurableValueTexts(QStringLiteral("1")));
}

QByteArray Utf16(const QString& text) {
    QStringEncoder encoder(QStringEncoder::Utf16LE);
    return "\xFF\xFE" + QByteArray(encoder(text));
}

TEST_F(TextFixture, EncodingsAndLineEndsLoadTheSameTables) {
    // The last character needs two UTF-16 units; U+0A0A has the byte of a line feed twice.
    const QString text = QStringLiteral("Drehzahl \u00FCber 5 \u03A9 \u0A0A \U0001F600");
    const QString file = QStringLiteral("TOOLTIP\t1\t%1\nPAN\t2\tlast line without an end").arg(text);
    const QByteArray contents[] = {file.toUtf8(), "\xEF\xBB\xBF" + file.toUtf8(), Utf16(file),
                                   file.toUtf8().replace("\n", "\r\n"),
                                   Utf16(QString(file).replace(u'\n', QStringLiteral("\r\n")))};
    for (const QByteArray& content : contents) {
        WriteWizardTexts(content);
        CWizardTextStore store;
        EXPECT_EQ(store.GetToolTip(1), text) << content.toHex().constData();
        EXPECT_EQ(store.GetParameterName(2), QStringLiteral("last line without an end"));
    }
}

TEST_F(TextFixture, BytesThatAreNoUtf8AreReadAsLatin1FieldByField) {
    WriteWizardTexts("TOOLTIP\t1\t\xFC"
                     "ber\nTOOLTIP\t2\t\xC3\xBC"
                     "ber\n");
    EXPECT_EQ(m_store.GetToolTip(1), QStringLiteral("\u00FCber"));
    EXPECT_EQ(m_store.GetToolTip(2), QStringLiteral("\u00FCber"));
}

TEST_F(TextFixture, AnEmptyFileIsAFile) {
    for (const QByteArray& content : {QByteArray(), QByteArray("\xFF\xFE", 2), QByteArray("\n\r\n\n")}) {
        WriteWizardTexts(content);
        CWizardTextStore store;
        EXPECT_TRUE(store.EnsureWizardTexts());
        EXPECT_EQ(store.GetToolTip(0), QString());
    }
}

} // namespace
} // namespace krt550
