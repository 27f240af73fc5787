#pragma once

namespace krt550 {

/// The real program with the real module, as a person starts it; with a directory of the test's own.
class ToolRun {
public:
    ToolRun() {
        m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_directory.path());
        process.setProgram(QStringLiteral(KRT550_BINARY_DIR "/bin/krt550tool"));
    }
    /// One that is still at work is ended the hard way.
    ~ToolRun() { process.kill(); }

    QString Path(const QString& name) const { return m_directory.filePath(name); }
    void SetVariable(const char* name, const QString& value) { m_environment.insert(QLatin1String(name), value); }
    void DropVariable(const char* name) { m_environment.remove(QLatin1String(name)); }

    void Write(const QString& name, const QString& text) const {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

    QStringList Lines(const QString& name) const {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly)
                   ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)
                   : QStringList();
    }

    /// Starts the program; ~ stands for the test's directory.
    void Start(QString arguments) {
        arguments.replace(QLatin1Char('~'), m_directory.path());
        process.setProcessEnvironment(m_environment);
        process.setArguments(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
        process.start();
    }

    /// Reads what the program prints until it has printed `text`.
    bool WaitForOutput(const QString& text) {
        while (!output.contains(text) && process.waitForReadyRead(kLongestMs))
            output += QString::fromUtf8(process.readAllStandardOutput());
        return output.contains(text);
    }

    /// Waits at most so long; true when the program has written to its standard error, or has ended.
    bool HasComplained(int milliseconds) {
        const bool ended = process.waitForFinished(milliseconds);
        errors += QString::fromUtf8(process.readAllStandardError());
        return ended || !errors.isEmpty();
    }

    /// The exit status.
    int Finish() {
        EXPECT_TRUE(process.state() == QProcess::NotRunning || process.waitForFinished(kLongestMs))
            << process.errorString().toStdString();
        output += QString::fromUtf8(process.readAllStandardOutput());
        errors += QString::fromUtf8(process.readAllStandardError());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << errors.toStdString();
        return process.exitCode();
    }

    int Run(const QString& arguments) {
        Start(arguments);
        return Finish();
    }

    /// Plays a script of these lines.
    int Play(const QString& lines, const QString& more = {}) {
        Write(QStringLiteral("a.play"), lines);
        return Run(QLatin1String("--play ~/a.play --shots ~ ") + more);
    }

    QProcess process;
    QString output;
    QString errors;

private:
    static constexpr int kLongestMs = 60'000;

    QTemporaryDir m_directory;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

} // namespace krt550
