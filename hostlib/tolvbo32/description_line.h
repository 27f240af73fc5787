#pragma once

#include <QString>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

/// What a drive description's lines are made of.
namespace krt550::description {

enum Column { Register, Name, Unit, Type, Kind, Decimals, Minimum, Maximum, Default, Access, Values, ColumnCount };

constexpr std::string_view kHeader[] = {"register", "name",    "unit",    "data type", "type",  "decimals",
                                        "minimum",  "maximum", "default", "access",    "values"};

inline QString Text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// All of `text` as a number; false when it is none.
template <class Number> bool Parse(std::string_view text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

/// What stands before the next `separator`, which goes with it.
inline std::string_view TakeUpTo(std::string_view& text, char separator) {
    const std::string_view part = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(text.size(), part.size() + 1));
    return part;
}

/// The fields of one line; remembers the first thing that is wrong.
class CDescriptionLine {
public:
    explicit CDescriptionLine(std::string_view line) {
        m_count = 1 + static_cast<std::size_t>(std::ranges::count(line, '\t'));
        for (std::size_t i = 0; i < std::min(m_count, m_fields.size()); ++i)
            m_fields[i] = TakeUpTo(line, '\t');
    }

    std::size_t count() const { return m_count; }
    std::string_view text(Column column) const { return m_fields[column]; }
    bool isHeader() const { return m_count == ColumnCount && std::ranges::equal(m_fields, kHeader); }

    int integer(Column column, std::initializer_list<int> allowed) {
        int value = 0;
        if (!Parse(text(column), value) || std::ranges::find(allowed, value) == allowed.end())
            bad(column);
        return value;
    }

    double number(Column column) {
        double value = 0;
        if (!Parse(text(column), value))
            bad(column);
        return value;
    }

    void bad(Column column) { fail(QStringLiteral("bad %1 \"%2\"").arg(Text(kHeader[column]), Text(text(column)))); }

    void fail(const QString& what) {
        if (m_error.isEmpty())
            m_error = what;
    }

    const QString& error() const { return m_error; }

private:
    std::array<std::string_view, ColumnCount> m_fields;
    std::size_t m_count = 0;
    QString m_error;
};

} // namespace krt550::description
