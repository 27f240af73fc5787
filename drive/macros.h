#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <QStringList>

#include <optional>
#include <vector>

class QIODevice;

namespace krt550 {

class CRegisterFile;

/// The application macros of a drive: ready-made wirings of its terminals.
class CMacroTable {
public:
    struct Line {
        quint16 macro;
        quint16 reg;
        quint16 word;
    };

    CMacroTable() = default;
    explicit CMacroTable(std::vector<Line> lines) : m_lines(std::move(lines)) {}

    bool Has(quint16 macro) const;
    /// Sets every register that any macro names to its factory setting, then those of `macro` to what it says.
    void Load(quint16 macro, CRegisterFile& registers) const;

private:
    std::vector<Line> m_lines;
};

/// Reads macros: tab-separated UTF-8 text with the header line
///   macro  register  value
/// and a line for each register of a macro, its value in shown units; lines that start with '#' and empty lines are
/// skipped. `fileName` is used in the errors, one for each bad line: "FILE:LINE: what is wrong". Nothing is returned
/// when there was any error: a register that `parameters` lacks, that is read-only or named twice by a macro, a value
/// that it does not take.
std::optional<CMacroTable> ReadMacros(QIODevice& input, const QString& fileName,
                                      const std::vector<ParameterDescription>& parameters, QStringList& errors);

/// The same from a file; a file that cannot be opened is an error too.
std::optional<CMacroTable> ReadMacroFile(const QString& path, const std::vector<ParameterDescription>& parameters,
                                         QStringList& errors);

} // namespace krt550
