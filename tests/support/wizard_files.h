#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryDir>

namespace krt550 {

/// A wizard directory of the tests' own. The text store loads a file once in a process, so every test of a binary
/// shares the same texts.
class WizardFiles {
public:
    explicit WizardFiles(const QByteArray& wizardTexts) {
        QFile file(m_directory.filePath(QStringLiteral("Wzkrt550.txt")));
        if (file.open(QIODevice::WriteOnly))
            file.write(wizardTexts);
    }

    QString Directory() const { return m_directory.path(); }
    /// What CDriveInfo::GetWizardPath answers for it.
    QString WizardPath() const { return m_directory.filePath(QStringLiteral("KRT550Wizard.so")); }

private:
    QTemporaryDir m_directory;
};

} // namespace krt550
