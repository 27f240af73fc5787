#include "wizard/texts/wizard_text_store.h"

#include "wizard/platform/message_box.h"
#include "wizard/texts/line_reader.h"
#include "wizard/texts/wizard_directory.h"

#include <QFile>
#include <QScopedValueRollback>

namespace krt550 {

CWizardTextStore& CWizardTextStore::Instance() {
    static CWizardTextStore store;
    return store;
}

template <auto ReadLine, class Tables>
bool CWizardTextStore::Ensure(bool& loaded, Tables& tables, const QString& fileName, const QString& failure) {
    // A message box lets timers run, and their queries must not stack up further boxes on top of it.
    if (m_reporting)
        return false;
    const QScopedValueRollback reporting(m_reporting, true);
    const QString path = WizardFilePath(fileName);
    QFile file(MachinePath(path));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        ShowMessageBox(QStringLiteral("Failed to open file: ") + path, MessageIcon::None);
        ShowMessageBox(failure, MessageIcon::Stop);
        return false;
    }
    loaded = true;
    CLineReader reader(file);
    std::string_view line;
    while (reader.NextLine(line))
        ReadLine(tables, line);
    if (reader.HasFailed()) // what has been read so far stays in use
        ShowMessageBox(QStringLiteral("%1\n%2: %3").arg(failure, path, file.errorString()), MessageIcon::Stop);
    return true;
}

bool CWizardTextStore::EnsureWizardTexts() {
    return m_wizardLoaded || Ensure<ReadWizardLine>(m_wizardLoaded, m_wizard, QStringLiteral("Wzkrt550.txt"),
                                                    QStringLiteral("Error while reading wizard texts"));
}

bool CWizardTextStore::EnsureConfigurableTexts() {
    return m_configurableLoaded ||
           Ensure<ReadConfigurableLine>(m_configurableLoaded, m_configurable,
                                        QStringLiteral("KRT550ConfigurableAssistant.txt"),
                                        QStringLiteral("Error while reading configurable assistant texts"));
}

} // namespace krt550
