#include "hostlib/text_files/text_fields.h"

#include <QByteArrayView>

#include <algorithm>
#include <charconv>
#include <limits>

namespace krt550 {
namespace {

bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

void SkipBlanks(std::string_view& field) {
    while (!field.empty() && IsBlank(field.front()))
        field.remove_prefix(1);
}

bool TakeSign(std::string_view& field) {
    const bool negative = !field.empty() && field.front() == '-';
    if (!field.empty() && (negative || field.front() == '+'))
        field.remove_prefix(1);
    return negative;
}

/// The decimal number at the start of a field, kept just beyond the range of NumberOfField when it is larger.
qint64 WideNumberOf(std::string_view field) {
    constexpr qint64 kLimit = qint64{1} << 32;
    SkipBlanks(field);
    const bool negative = TakeSign(field);
    qint64 number = 0;
    for (const char c : field) {
        if (c < '0' || c > '9')
            break;
        number = std::min(kLimit, number * 10 + (c - '0'));
    }
    return negative ? -number : number;
}

} // namespace

QString TextOfField(std::string_view field) {
    const QByteArrayView bytes(field.data(), static_cast<qsizetype>(field.size()));
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

bool FieldIs(std::string_view field, const QString& text) {
    return TextOfField(field) == text;
}

int NumberOfField(std::string_view field) {
    constexpr qint64 kLimit = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(WideNumberOf(field), -kLimit, kLimit));
}

bool IsNumberInRange(std::string_view field) {
    return WideNumberOf(field) == NumberOfField(field);
}

float FactorOfField(std::string_view field) {
    SkipBlanks(field);
    const bool negative = TakeSign(field);
    double factor = 0;
    if (!field.empty() && field.front() != '-' &&
        std::from_chars(field.data(), field.data() + field.size(), factor).ec == std::errc::result_out_of_range)
        factor = std::numeric_limits<double>::infinity();
    if (factor > std::numeric_limits<float>::max())
        return std::numeric_limits<float>::infinity();
    return static_cast<float>(negative ? -factor : factor);
}

} // namespace krt550
