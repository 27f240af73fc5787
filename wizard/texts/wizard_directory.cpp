#include "wizard/texts/wizard_directory.h"

#include <QDir>

namespace krt550 {
namespace {

struct Directory {
    QString module;
    QString native; ///< empty: the module's spelling with slashes
};

Directory& Current() {
    static Directory directory;
    return directory;
}

} // namespace

void SetWizardDirectory(const QString& directory, const QString& native) {
    const bool usable = !native.isEmpty() && QDir(native).exists();
    Current() = {directory, usable ? native : QString()};
}

const QString& GetWizardDirectory() {
    return Current().module;
}

QString WizardFilePath(const QString& name) {
    return Current().module + u'\\' + name;
}

QString MachinePath(const QString& modulePath) {
    const auto& [module, native] = Current();
    const bool own = !native.isEmpty() && modulePath.startsWith(module + u'\\');
    const QString rest = own ? modulePath.mid(module.size()) : modulePath;
    return (own ? native : QString()) + QString(rest).replace(u'\\', u'/');
}

} // namespace krt550
