#include "wizard/texts/wizard_text_store.h"

#include "hostlib/text_files/line_reader.h"
#include "hostlib/text_files/regular_file.h"
#include "wizard/platform/message_box.h"
#include "wizard/texts/wizard_directory.h"

#include <QScopedValueRollback>

namespace krt550 {
namespace {

constexpr qint64 kMegabyte = 1024 * 1024;
constexpr qint64 kLargestFile = 256 * kMegabyte;
constexpr int kMostProblems = 10; ///< told in one box

/// Takes the reason for which the last line was refused; only lines of the wizard text file can be.
QString TakeRefusal(WizardTables& tables) {
    return std::exchange(tables.refusal, {});
}
QString TakeRefusal(ConfigurableTables&) {
    return {};
}

} // namespace

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
    const FileProblem problem = OpenRegularFile(file, kLargestFile);
    if (problem != FileProblem::None) {
        ShowMessageBox(QStringLiteral("Failed to open file: ") + path, MessageIcon::None);
        const QString why = QStringLiteral("\nThe file is larger than %1 MB.").arg(kLargestFile / kMegabyte);
        ShowMessageBox(problem == FileProblem::TooLarge ? failure + why : failure, MessageIcon::Stop);
        return false;
    }
    loaded = true;
    QStringList problems;
    CLineReader reader(file);
    std::string_view line;
    for (int number = 1; reader.NextLine(line); ++number) {
        ReadLine(tables, line);
        const QString refusal = TakeRefusal(tables);
        if (!refusal.isEmpty() && problems.size() < kMostProblems)
            problems.append(QStringLiteral("%1, line %2: %3").arg(path, QString::number(number), refusal));
    }
    if (reader.HasFailed()) // what has been read so far stays in use
        problems.append(QStringLiteral("%1: %2").arg(path, file.errorString()));
    if (!problems.isEmpty())
        ShowMessageBox(failure + u'\n' + problems.join(u'\n'), MessageIcon::Stop);
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
