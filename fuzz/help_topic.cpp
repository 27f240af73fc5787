// A topic made of any bytes: laid out when it is taken for simple.
#include "wizard/texts/help_topic.h"
#include "wizard/texts/help_file.h"

#include <QGuiApplication>
#include <QTextDocument>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    constexpr int kWidth = 600;
    if (size > static_cast<std::size_t>(krt550::kLargestTopic))
        return 0;
    const QString html = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (!krt550::IsSimpleTopic(html))
        return 0;
    QTextDocument document;
    document.setHtml(html);
    document.setTextWidth(kWidth);
    return 0;
}
