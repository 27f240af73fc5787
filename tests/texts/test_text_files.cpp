// Finding, opening and decoding the files.
#include "tests/texts/text_fixture.h"

#include <filesystem>
#include <sys/stat.h>

namespace krt550 {
namespace {

TEST(WizardDirectoryTest, KeepsBackslashesUntilAFileIsOpenedAndThoseOfItsName) {
    const QTemporaryDir directory;
    const QString native = directory.path() + QStringLiteral("/a\\b");
    const QString module = QString(native).replace(u'/', u'\\');
    SetWizardDirectory(module, native);
    EXPECT_EQ(WizardFilePath(QStringLiteral("c.txt")), module + QStringLiteral("\\c.txt"));
    EXPECT_EQ(MachinePath(WizardFilePath(QStringLiteral("c.txt"))), directory.path() + QStringLiteral("/a/b/c.txt"))
        << "there is no such directory";
    QDir().mkdir(native);
    SetWizardDirectory(module, native);
    EXPECT_EQ(MachinePath(WizardFilePath(QStringLiteral("c.txt"))), native + QStringLiteral("/c.txt"));
    EXPECT_EQ(MachinePath(QStringLiteral("\\else\\x/c.txt")), QStringLiteral("/else/x/c.txt"));
    SetWizardDirectory({});
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

TEST_F(TextFixture, OnlyARegularFileOfBoundedSizeIsRead) {
    const QString path = m_directory.filePath(QStringLiteral("Wzkrt550.txt"));
    const std::pair<std::function<void()>, const char*> cases[] = {
        {[&] { QDir().mkdir(path); }, "Error while reading wizard texts"},
        {[&] { mkfifo(path.toLocal8Bit().constData(), 0600); }, "Error while reading wizard texts"},
        {[&] { QFile::link(QStringLiteral("/dev/zero"), path); }, "Error while reading wizard texts"},
        {[&] {
             WriteWizardTexts("TOOLTIP\t1\ttext\n");
             QFile::resize(path, (qint64{256} << 20) + 1);
         },
         "Error while reading wizard texts\nThe file is larger than 256 MB."},
    };
    for (const auto& [make, message] : cases) {
        make();
        m_boxes.Expect("Failed to open file: *");
        m_boxes.Expect(message).WithIcon(QMessageBox::Critical);
        EXPECT_EQ(m_store.GetToolTip(1), QString());
        m_boxes.Verify();
        std::filesystem::remove(path.toStdString());
    }
}

TEST_F(TextFixture, NumbersThatNobodyCanCalculateWithAreRefusedWithTheirLines) {
    WriteWizardTexts("SPEEDRESP\t10\t0\t100\nSPEEDRESP\t10\t-2147483648\t100\nSPEEDRESP\t10\t0\t99999999999\n"
                     "GAINADJUP\t8827\t1\n\nGAINADJUP\t8827\tinf\nGAINADJDOWN\t8827\tnan\nGAINADJDOWN\t8827\t1e300\n"
                     "GAINADJDOWN\t8827\t-1e999\nTOOLTIP\t99999999999\ttext\n");
    const QString line = GetWizardDirectory() + QStringLiteral("\\Wzkrt550.txt, line ");
    const QString number = QStringLiteral(" is not a number from -2147483647 to 2147483647");
    const QString factor = QStringLiteral(" is not a factor from -3e38 to 3e38");
    m_boxes
        .Expect(QStringList{QStringLiteral("Error while reading wizard texts"),
                            line + QStringLiteral("2: -2147483648") + number,
                            line + QStringLiteral("3: 99999999999") + number, line + QStringLiteral("6: inf") + factor,
                            line + QStringLiteral("7: nan") + factor, line + QStringLiteral("8: 1e300") + factor,
                            line + QStringLiteral("9: -1e999") + factor}
                    .join(u'\n'))
        .WithIcon(QMessageBox::Critical);
    SpeedResponse response;
    EXPECT_TRUE(m_store.GetSpeedResponse(response));
    EXPECT_EQ(response, (SpeedResponse{10, 0, 100}));
    GainAdjustment gain;
    EXPECT_FALSE(m_store.GetGainAdjustUp(gain));
    EXPECT_FALSE(m_store.GetGainAdjustDown(gain));
}

TEST_F(TextFixture, TheTwoFilesAreLoadedApart) {
    WriteWizardTexts("VAN\t1\t2\ttwo\n");
    EXPECT_TRUE(m_store.HasValueTexts(QStringLiteral("1")));
    m_boxes.Expect(QStringLiteral("Failed to open file: ") + GetWizardDirectory() +
                   QStringLiteral("\\KRT550ConfigurableAssistant.txt"));
    m_boxes.Expect("Error while reading configurable assistant texts").WithIcon(QMessageBox::Critical);
    EXPECT_FALSE(m_store.HasConfigurableValueTexts(QStringLiteral("1")));
}

TEST_F(TextFixture, BytesThatAreNoUtf8AreLatin1FieldByFieldAndAnEmptyFileIsAFile) {
    WriteWizardTexts("TOOLTIP\t1\t\xFC"
                     "ber\nTOOLTIP\t2\t\xC3\xBC"
                     "ber\n");
    EXPECT_EQ(m_store.GetToolTip(1), QStringLiteral("\u00FCber"));
    EXPECT_EQ(m_store.GetToolTip(2), QStringLiteral("\u00FCber"));
    for (const QByteArray& content : {QByteArray(), QByteArray("\xFF\xFE", 2), QByteArray("\n\r\n\n")}) {
        WriteWizardTexts(content);
        EXPECT_TRUE(CWizardTextStore().EnsureWizardTexts());
    }
}

} // namespace
} // namespace krt550
