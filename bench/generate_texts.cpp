// generate_texts DIRECTORY MEGABYTES: writes a wizard text file into a directory (Wzkrt550.txt): the kinds of lines of
// a real one, in the proportions of a real one, over ever more registers, values and signals. The same bytes each time.
#include <QFile>

#include <cstdio>

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

int main(int argc, char** argv) {
    const qint64 megabytes = argc == 3 ? QByteArray(argv[2]).toInt() : 0;
    QFile file(QString::fromLocal8Bit(argc == 3 ? argv[1] : "") + QStringLiteral("/Wzkrt550.txt"));
    if (megabytes <= 0 || !file.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "usage: generate_texts DIRECTORY MEGABYTES; %s is not written\n",
                     qPrintable(file.fileName()));
        return 2;
    }
    for (int number = 0; file.pos() < megabytes * 1'000'000; ++number)
        file.write(LinesOf(number));
    return 0;
}
