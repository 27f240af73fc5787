#pragma once

#include <QString>

namespace krt550 {

/// Sets the directory of the wizard's own files: module-wide, without a trailing separator, spelled with backslashes.
/// `native` is the machine's own spelling of it, for names that hold a backslash themselves; used when it exists.
void SetWizardDirectory(const QString& directory, const QString& native = {});

/// Directory of the wizard's own files; empty until it is set.
const QString& GetWizardDirectory();

/// Path of one of the wizard's own files: directory, backslash, name.
QString WizardFilePath(const QString& name);

/// The machine's own spelling of a module path. Only where a file is opened; everywhere else paths keep their
/// backslashes.
QString MachinePath(const QString& modulePath);

} // namespace krt550
