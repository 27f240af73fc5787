#pragma once

#include <QtGlobal>

#include <utility>
#include <vector>

namespace krt550 {

class CRegisterFile;

/// Number of the diagnosis that tells of a trip during a run: its cause and the parameter to look at.
quint16 DiagnosisOfFault(quint16 fault);
/// A result that its register cannot hold would be another number there: the number of the diagnosis with which the run
/// refuses instead, 0 when all fit. Registers with shown values.
quint16 DiagnosisOfResults(const std::vector<std::pair<quint16, double>>& results, const CRegisterFile& registers);

} // namespace krt550
