#include "host/loaded_function.h"

#include <QFileInfo>
#include <QLibrary>

namespace krt550 {

QFunctionPointer LoadFunction(const QString& what, const QString& path, const char* name, QString& error) {
    const QFileInfo file(path);
    if (!file.isFile()) {
        error = QStringLiteral("%1: there is no such file").arg(what);
        return nullptr;
    }
    QLibrary library(file.absoluteFilePath());
    // A thread that hangs in the disk may still be in it when the program ends.
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const QFunctionPointer function = library.resolve(name);
    if (!function)
        error = library.isLoaded() ? QStringLiteral("%1 has no function %2").arg(what, QLatin1String(name))
                                   : QStringLiteral("%1: %2").arg(what, library.errorString().simplified());
    return function;
}

} // namespace krt550
