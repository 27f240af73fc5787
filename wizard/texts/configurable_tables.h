#pragma once

#include "hostlib/text_files/text_table.h"

#include <QHash>

#include <array>

namespace krt550 {

/// The tables of the configurable-assistant file.
struct ConfigurableTables {
    /// Register, preset value, caption, tool tip, help text: as they stand in the file.
    using Row = std::array<std::string_view, 5>;

    CTextArena arena;
    std::string_view name;
    QHash<int, Row> rows;
    CValueTextTable valueTexts{arena};

    ConfigurableTables() = default;
    ConfigurableTables(const ConfigurableTables&) = delete;
    ConfigurableTables& operator=(const ConfigurableTables&) = delete;
};

/// Reads a line of the configurable-assistant file into its table. Lines of other kinds are ignored.
void ReadConfigurableLine(ConfigurableTables& tables, std::string_view line);

} // namespace krt550
