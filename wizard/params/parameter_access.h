#pragma once

#include "wizard/params/text_source.h"

#include <QString>

class QWidget;

namespace krt550 {

class CHostDrive;
class CParameter;
class CParameterGroup;
class CParameterSet;

inline constexpr int kNotFoundMessage = 5;      ///< the drive lacks parameter REPLACE
inline constexpr int kNoValueListMessage = 229; ///< parameter REPLACE has no list of values

/// Root of the drive's parameter tree; null without a drive, when the drive answers no, or without a root.
CParameterGroup* GetParameterRoot(CHostDrive* drive);

/// The parameter below `root` (not null) with this register, or null.
CParameter* FindInTree(CParameterGroup* root, quint16 reg);

/// The same, and when the drive lacks it, says so in an error box.
CParameter* FindParameter(CParameterGroup* root, quint16 reg);

/// Reads from the drive; a failure is shown with the library's text. False on failure and for null.
bool ReadParameter(CParameter* parameter);

/// Writes to the drive; a failure is shown with the library's text. False on failure and for null.
bool WriteParameter(CParameter* parameter);

/// Finds, sets and writes. A refused word ends it silently. True only when the write succeeded.
bool SetAndWriteParameter(CParameterGroup* root, quint16 reg, quint16 word);

/// Shows the library's last error of a node in an error box, inside a FailurePass when that ends; nothing when its text
/// is empty, when a LossMemory has its reason, or for null.
void ShowLastError(const CParameterSet* parameter);

/// "Parameter REPLACE not found from drive..." and its like: string `message` with REPLACE replaced.
QString MessageFor(int message, quint16 reg);

/// Register text of a parameter: index of its group and its own, "9906".
QString RegisterText(const CParameterSet& parameter);

/// Text that shows a parameter's value: the text source's text for it, or the library's.
/// With value texts that lack this value: the wizard text file falls back to the library's text and then to the bare
/// number, the configurable file to the bare number. Empty for null.
QString FormatValueText(const CParameter* parameter, TextSource source = TextSource::WizardFile);

/// Reads a parameter from the drive and shows it in the control. False when the read failed (shown once) and for null.
bool ShowParameterValue(CParameter* parameter, QWidget* control);

/// Sets the control's text to a string of the resources, followed by `suffix`; a missing string leaves the text.
void SetControlTextFromString(QWidget* control, int stringId, const QString& suffix = {});

/// Names the view that a view button leads to: the advanced one from the basic one, and back.
void SetViewText(QWidget* button, bool isBasicView);

} // namespace krt550
