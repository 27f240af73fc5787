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

bool CWizardTextStore::EnsureWizardTexts() {
    return Ensure(m_wizardLoaded, QStringLiteral("Wzkrt550.txt"), QStringLiteral("Error while reading wizard texts"),
                  [this](std::string_view line) { ReadWizardLine(m_wizard, line); });
}

bool CWizardTextStore::EnsureConfigurableTexts() {
    return Ensure(m_configurableLoaded, QStringLiteral("KRT550ConfigurableAssistant.txt"),
                  QStringLiteral("Error while reading configurable assistant texts"),
                  [this](std::string_view line) { ReadConfigurableLine(m_configurable, line); });
}

bool CWizardTextStore::Ensure(bool& loaded, const QString& fileName, const QString& failure,
                              const LineReader& readLine) {
    // A message box lets timers run, and their queries must not stack up further boxes on top of it.
    if (loaded || m_reporting)
        return loaded;
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
        readLine(line);
    if (reader.HasFailed()) // what has been read so far stays in use
        ShowMessageBox(QStringLiteral("%1\n%2: %3").arg(failure, path, file.errorString()), MessageIcon::Stop);
    return true;
}

} // namespace krt550
