#include "tests/support/print_qt.h"

QT_BEGIN_NAMESPACE
void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE
