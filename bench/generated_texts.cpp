#include "bench/generated_texts.h"

#include <QFile>

namespace krt550 {
namespace {

/// Lines of one register, numbers filled in.
QByteArray LinesOf(int number) {
    const QByteArray reg = QByteArray::number(101 + number % 65000);
    const QByteArray round = QByteArray::number(number / 65000);
    QByteArray lines = "; ---- " + reg + " ----\r\n\r\n";
    lines += "PAN\t" + reg + "\tParameter " + reg + '.' + round + "\r\n";
    lines += "TOOLTIP\t" + reg + "\tSets how the drive treats " + reg + ", round " + round +
             ". A higher value answers faster; too high a value makes the current swing.\t\r\n";
    if (number % 3 == 0)
        for (int value = 0; value < 8; ++value) {
            const QByteArray text = QByteArray::number(value + 8 * (number / 65000));
            lines += "VAN\t" + reg + '\t' + text + "\tChoice " + text + " of " + reg + "\r\n";
        }
    if (number % 5 == 0)
        lines += "AO\t" + reg + "\tSignal " + reg + "\r\nDO\t" + reg + "\t3\tBit 3 of " + reg + "\r\n";
    if (number % 50 == 0)
        lines += "DI\t" + reg + "\t1\t2\t3\t4\t\t\t7\t8\t0\tFunction " + reg + "\r\nUPDATE\t" + reg + "\t1000\r\n";
    return lines;
}

} // namespace

void WriteGeneratedTexts(const QString& directory, qint64 bytes) {
    QFile file(directory + QStringLiteral("/Wzkrt550.txt"));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(file.fileName()));
    for (int number = 0; file.pos() < bytes; ++number)
        file.write(LinesOf(number));
}

} // namespace krt550
