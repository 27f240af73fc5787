#pragma once

#include <QString>

class QWidget;

namespace krt550 {

class CParameter;

/// Checks a typed value against the parameter's limits or, when both are 0, its data type; a refusal is shown in an
/// exclamation box. So is a text that the parameter cannot hold as it stands: too many decimals, separated thousands,
/// something behind the number. Any text is valid for a value list, an empty one counts as 0. Every "," in the text
/// becomes ".". False for null.
bool ValidateValueText(const CParameter* parameter, QString& text);

/// The same for a control's text, which stays as it is.
bool ValidateControlValue(const CParameter* parameter, const QWidget* control);

} // namespace krt550
