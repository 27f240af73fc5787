// A help book made of any bytes: opened, and all of it read.
#include "wizard/texts/help_file.h"

#include <QGuiApplication>

#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString failure;
    const auto book = krt550::CHelpFile::OpenBytes(bytes, failure);
    if (!book) {
        if (failure.isEmpty())
            std::abort(); // refused without a reason
        return 0;
    }
    for (const QString& name : book->Names()) {
        const auto [topic, refusal] = book->ReadTopic(name);
        if (!topic.isEmpty() && !refusal.isEmpty())
            std::abort(); // shown and refused
    }
    book->ReadContents();
    return 0;
}
