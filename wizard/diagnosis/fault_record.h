#pragma once

#include <QByteArray>
#include <QString>

namespace krt550 {

class CHostDrive;
class CParameterGroup;

/// The module-wide record of the drive's last fault.

/// Says which drive is meant (borrowed; null: none).
void SetDiagnosisDrive(CHostDrive* drive);
CHostDrive* GetDiagnosisDrive();

/// Fetches the record and puts the drive's service mode back to 0. False when there is no drive, the drive did not give
/// the record, or the service mode could not be written; texts of problems are appended to `message`, except those that
/// were shown at once.
bool ReadFaultRecord(QString& message);

/// The bytes of the last fetch, whatever became of it.
const QByteArray& GetFaultRecord();

/// True when the record holds a code of an active fault, 1 to 3999.
bool HasActiveFaultCode();

/// Text of a unit code in the drive's own words; empty without drive or text.
QString GetUnitText(int unitCode);

/// Puts string `stringId` into `text`, its REPLACE replaced by what the drive's diagnosis parameter says now. Without
/// root the text stays; when the parameter is missing or cannot be read (reported), REPLACE stays.
void GetDiagnosisText(CParameterGroup* root, int stringId, QString& text);

} // namespace krt550
