#pragma once

#include <QString>

class QWidget;

namespace krt550 {

class CParameter;

/// Checks a typed value against the parameter's limits or, when both are 0, its data type; a refusal is shown in an
/// exclamation box. Any text is valid for a value list. Every "," in the text becomes ".". The number is read from the
/// text's start, what follows it is ignored, and no number counts as 0. False for null.
bool ValidateValueText(const CParameter* parameter, QString& text);

/// The same for a control's text, which stays as it is.
bool ValidateControlValue(const CParameter* parameter, const QWidget* control);

} // namespace krt550
