#include "wizard/texts/wizard_directory.h"

namespace krt550 {
namespace {

QString& Directory() {
    static QString directory;
    return directory;
}

} // namespace

void SetWizardDirectory(const QString& directory) {
    Directory() = directory;
}

const QString& GetWizardDirectory() {
    return Directory();
}

QString WizardFilePath(const QString& name) {
    return Directory() + u'\\' + name;
}

QString MachinePath(const QString& modulePath) {
    return QString(modulePath).replace(u'\\', u'/');
}

} // namespace krt550
