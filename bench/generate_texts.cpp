// generate_texts DIRECTORY MEGABYTES: writes the text file that the benchmarks load.
#include "bench/generated_texts.h"

#include <cstdio>

int main(int argc, char** argv) {
    const int megabytes = argc == 3 ? QByteArray(argv[2]).toInt() : 0;
    if (megabytes <= 0) {
        std::fprintf(stderr, "usage: generate_texts DIRECTORY MEGABYTES\n");
        return 2;
    }
    krt550::WriteGeneratedTexts(QString::fromLocal8Bit(argv[1]), qint64{megabytes} * 1'000'000);
    return 0;
}
