#include "host/part.h"

#include "drive/named_drive.h"
#include "host/loaded_function.h"

#include <QFileInfo>

namespace krt550 {
namespace {

QString PathOf(const char* name) {
    return OrBesideProgram({}, KRT550_PARTS_PATH) + QStringLiteral("/%1.so").arg(QLatin1String(name));
}

} // namespace

bool HasPart(const char* name, QString& error) {
    const QString path = PathOf(name);
    if (QFileInfo(path).isFile())
        return true;
    error = QStringLiteral("part %1: there is no such file").arg(path);
    return false;
}

QFunctionPointer LoadPart(const char* name, QString& error) {
    const QString path = PathOf(name);
    return LoadFunction(QLatin1String("part ") + path, path, QByteArray("krt550_").append(name), error);
}

} // namespace krt550
