#pragma once

#include <QFunctionPointer>
#include <QString>

namespace krt550 {

/// The function of that name in a loadable library, which stays loaded until the program ends. Null, and the reason in
/// `error`, when there is no such file, it or something that it needs cannot be loaded, or it has no such function.
/// `what` names it in errors: "module /usr/lib/krt550/KRT550Wizard.so".
QFunctionPointer LoadFunction(const QString& what, const QString& path, const char* name, QString& error);

} // namespace krt550
