// The real program, as a person starts it.
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace krt550 {
namespace {

constexpr const char* kParameters =
    "register\tname\tunit\tdata type\ttype\tdecimals\tminimum\tmaximum\tdefault\taccess\tvalues\n"
    "9902\tMotor 1 nominal voltage\tV\t8\t3\t0\t5\t2000\t350\trw\t\n"
    "3016\tMotor 1 overspeed\trpm\t8\t3\t0\t0\t10000\t1800\trw\t\n";

class Tool : public testing::Test {
protected:
    Tool() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        m_process.setProcessEnvironment(environment);
        m_process.setProgram(QStringLiteral(KRT550_BINARY_DIR "/bin/krt550tool"));
        Write("parameters", kParameters);
    }

    QString Path(const char* name) const { return m_directory.filePath(QString::fromUtf8(name)); }

    void Write(const char* name, const char* text) const {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    /// Starts the program with everything it needs, and with `more`, where ~ stands for the test's directory.
    void Start(const char* more) {
        QStringList arguments{QStringLiteral("--module"),     QStringLiteral(KRT550_TOY_MODULE),
                              QStringLiteral("--wizard-dir"), m_directory.path(),
                              QStringLiteral("--parameters"), Path("parameters")};
        QString text = QString::fromUtf8(more);
        text.replace(QLatin1Char('~'), m_directory.path());
        m_process.setArguments(arguments + text.split(QLatin1Char(' '), Qt::SkipEmptyParts));
        m_process.start();
    }

    int Finish() {
        constexpr int kLongestMs = 60'000;
        EXPECT_TRUE(m_process.waitForFinished(kLongestMs)) << m_process.errorString().toStdString();
        m_output += QString::fromUtf8(m_process.readAllStandardOutput());
        m_errors = QString::fromUtf8(m_process.readAllStandardError());
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit) << m_errors.toStdString();
        return m_process.exitCode();
    }

    int Run(const char* more) {
        Start(more);
        return Finish();
    }

    /// The calls of the log among the program's output, without their times.
    QStringList Calls() const {
        QStringList calls;
        const QStringList lines = m_output.split(QLatin1Char('\n'));
        for (const QString& line : lines)
            if (line.contains(QLatin1Char('\t')) && !line.startsWith(QLatin1Char('#')))
                calls.append(line.section(QLatin1Char('\t'), 1).simplified());
        return calls;
    }

    QTemporaryDir m_directory;
    QProcess m_process;
    QString m_output;
    QString m_errors;
};

TEST_F(Tool, RefusesWrongOptionsAndFilesInOneLine) {
    Write("bad.parameters", "nonsense\n");
    Write("bad.play", "start\npress sideways\n");
    Write("good.play", "start\n");
    const struct {
        const char* arguments;
        const char* complaint;
    } cases[] = {
        {"--paly x", "--paly"},
        {"--drive tram", "tram"},
        {"--drive sim:S99", "motor \"S99\""},
        {"--drive sim,colour=red", "option \"colour\""},
        {"--drive sim,fault=moon", "moon"},
        {"--drive sim,R=9000", "option R: \"9000\" is not a number from 0.0005 to 60 Ohm"},
        {"--drive sim,J=heavy", "option J: \"heavy\" is not a number"},
        {"--wizard-dir ~/none", "/none"},
        {"--parameters ~/none", "/none"},
        {"--parameters ~/bad.parameters", "bad.parameters:1: "},
        {"--module ~/none.so", "none.so"},
        {"--module ~/good.play", "good.play"},
        {"--module " KRT550_NO_MODULE, "has no function RunWizard"},
        {"--play ~/none.play", "none.play"},
        {"--play ~/bad.play", "bad.play:2: \"sideways\""},
        {"--play ~/good.play --log ~/none/log", "none/log"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Run(c.arguments), 2) << c.arguments;
        EXPECT_TRUE(m_errors.startsWith(QLatin1String("krt550tool: ")))
            << c.arguments << ": " << m_errors.toStdString();
        EXPECT_TRUE(m_errors.contains(QString::fromUtf8(c.complaint))) << c.arguments << ": " << m_errors.toStdString();
        EXPECT_EQ(m_errors.count(QLatin1Char('\n')), 1) << c.arguments << ": " << m_errors.toStdString();
    }
}

TEST_F(Tool, PlaysAScriptAndLogsTheCalls) {
    Write("a.play", "expect title 240\nstart\nset 9902 44\nshow 9902\nshot step.png\nexpect log \"ReadWord 9902\"\n"
                    "press cancel\nwait closed\ndrive 9902 500\nexpect drive 9902 500\n");
    EXPECT_EQ(Run("--play ~/a.play --log - --shots ~/pictures"), 0) << m_errors.toStdString();
    EXPECT_EQ(m_errors, QString());
    EXPECT_TRUE(m_output.contains(QStringLiteral("a.play:3  set 9902 44\n")));
    EXPECT_TRUE(m_output.contains(QStringLiteral("  99.02 Motor 1 nominal voltage: 240 V\n")));
    EXPECT_TRUE(m_output.contains(QStringLiteral("RunWizard returned 0\n")));
    EXPECT_EQ(Calls(), QStringList({QStringLiteral("GetParameterRoot ok"), QStringLiteral("ReadWord 9902 240 ok"),
                                    QStringLiteral("TakeLocalControl ok"), QStringLiteral("ReleaseLocalControl ok")}));
    EXPECT_TRUE(QFile::exists(Path("pictures/step.png")));
}

TEST_F(Tool, ConnectsADriveWithAFault) {
    Write("a.play", "expect title \"no voltage\"\n");
    EXPECT_EQ(Run("--play ~/a.play --drive sim,fault=missing:9902"), 0) << m_errors.toStdString();
    Write("b.play", "expect title \"no voltage\"\n");
    EXPECT_EQ(Run("--play ~/b.play --drive sim,fault=read-fails:9902 --speed 10"), 0) << m_errors.toStdString();
}

TEST_F(Tool, LeavesTheDriveSafeWhenAPlayFails) {
    Write("a.play", "start\npress 301\nwait progress 5\npress 303\nexpect no box\n");
    EXPECT_EQ(Run("--play ~/a.play --log -"), 1);
    EXPECT_TRUE(m_errors.startsWith(QLatin1String("a.play:5: failed\n"))) << m_errors.toStdString();
    EXPECT_TRUE(m_output.contains(QStringLiteral("RunWizard returned 0\n")));
    EXPECT_EQ(Calls().last(), QStringLiteral("ReleaseLocalControl ok"));
}

TEST_F(Tool, LeavesTheDriveSafeWhenItIsTerminated) {
    Start("--log -");
    while (!m_output.contains(QLatin1String("TakeLocalControl")) && m_process.waitForReadyRead())
        m_output += QString::fromUtf8(m_process.readAllStandardOutput());
    m_process.terminate();
    EXPECT_EQ(Finish(), 1);
    EXPECT_EQ(Calls().last(), QStringLiteral("ReleaseLocalControl ok"));
    EXPECT_TRUE(m_output.contains(QStringLiteral("RunWizard returned 0\n")));
}

TEST_F(Tool, NeedsNoDisplayForAPlayOnly) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(QString::fromUtf8(variable));
    m_process.setProcessEnvironment(environment);
    EXPECT_EQ(Run(""), 1);
    EXPECT_TRUE(m_errors.contains(QLatin1String("there is no display"))) << m_errors.toStdString();
    Write("a.play", "expect title 240\n");
    EXPECT_EQ(Run("--play ~/a.play"), 0) << m_errors.toStdString();
}

} // namespace
} // namespace krt550
