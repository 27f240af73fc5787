#pragma once

#include "hostlib/host_drive.h"

namespace krt550 {

/// Code of a unit text as the drive puts it into its records; 0 for no unit and for one that has no code.
quint8 UnitCodeOf(const QString& unit);

/// The drive's unit texts by unit code.
class CUnitTexts : public CSAPDriveTexts {
public:
    /// False for a code without a text; `text` is then empty.
    bool GetTextForParameterUnit(int table, int language, int unitCode, QString& text) const override;
};

} // namespace krt550
