// Draws pictures when the module is built, so that they need not be drawn when it starts: into FOLDER, as bare pixels
// in files NUMBER/WIDTHxHEIGHT, for scales of 100, 150 and 200 %, with a list of them for the resource compiler.
//   predraw_pictures FOLDER NUMBER.svg...
#include "wizard/resources/svg_image.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {

bool Write(const QString& path, const QByteArray& content) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
        return true;
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return false;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: predraw_pictures FOLDER NUMBER.svg...\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    QByteArray list = "<RCC><qresource prefix=\"/krt550/drawn\">\n";
    for (int i = 2; i < argc; ++i) {
        const QString source = QString::fromLocal8Bit(argv[i]);
        const QString number = QFileInfo(source).completeBaseName();
        if (!folder.mkpath(number)) {
            std::fprintf(stderr, "%s: cannot make the folder %s\n", qPrintable(folder.path()), qPrintable(number));
            return 1;
        }
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QImage image = krt550::DrawSvg(source, {}, ratio);
            if (image.isNull()) {
                std::fprintf(stderr, "%s: is no picture that can be drawn\n", qPrintable(source));
                return 1;
            }
            const QString name = QStringLiteral("%1/%2x%3").arg(number).arg(image.width()).arg(image.height());
            // Lines of 32-bit pixels have no gaps between them.
            const QByteArray pixels(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
            if (!Write(folder.filePath(name), pixels))
                return 1;
            // What most people see is not worth the time that it takes to unpack.
            const char* packing = ratio > 1 ? "zstd" : "none";
            list += "<file compression-algorithm=\"" + QByteArray(packing) + "\">" + name.toUtf8() + "</file>\n";
        }
    }
    return Write(folder.filePath(QStringLiteral("drawn_pictures.qrc")), list + "</qresource></RCC>\n") ? 0 : 1;
}
