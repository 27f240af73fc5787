#pragma once

namespace krt550 {

/// A wizard directory of the tests' own. The text store loads a file once in a process, so every test of a binary
/// shares the same texts.
class WizardFiles {
public:
    explicit WizardFiles(const QByteArray& wizardTexts, const QByteArray& configurableTexts = {}) {
        Write(QStringLiteral("Wzkrt550.txt"), wizardTexts);
        if (!configurableTexts.isEmpty())
            Write(QStringLiteral("KRT550ConfigurableAssistant.txt"), configurableTexts);
    }

    QString Directory() const { return m_directory.path(); }
    /// What CDriveInfo::GetWizardPath answers for it.
    QString WizardPath() const { return m_directory.filePath(QStringLiteral("KRT550Wizard.so")); }

private:
    void Write(const QString& name, const QByteArray& content) {
        QFile file(m_directory.filePath(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
    }

    QTemporaryDir m_directory;
};

} // namespace krt550
