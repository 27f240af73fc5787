#include "hostlib/text_files/text_fields.h"
#include "wizard/texts/configurable_tables.h"

namespace krt550 {
namespace {

/// The first field that is not empty is the name.
void ReadName(ConfigurableTables& tables, CTextTokenizer& fields) {
    const std::string_view name = fields.NextFilledToken();
    if (!name.empty())
        tables.arena.Replace(tables.name, name);
}

/// Row number, then the fields of the row by position. A later line of the same row replaces all of it.
void ReadRow(ConfigurableTables& tables, CTextTokenizer& fields) {
    ConfigurableTables::Row& row = tables.rows[NumberOfField(fields.NextToken())];
    for (std::string_view& field : row)
        tables.arena.Replace(field, fields.NextToken());
}

} // namespace

void ReadConfigurableLine(ConfigurableTables& tables, std::string_view line) {
    CTextTokenizer fields(line, '\t');
    const std::string_view kind = fields.NextToken();
    if (!fields.HasMoreTokens())
        return;
    if (kind == "NAME")
        ReadName(tables, fields);
    else if (kind == "CAP")
        ReadRow(tables, fields);
    else if (kind == "VAN")
        tables.valueTexts.ReadLine(fields);
}

} // namespace krt550
