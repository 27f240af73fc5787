#pragma once

#include "wizard/params/text_source.h"

#include <QString>

#include <optional>

class QComboBox;
class QLineEdit;
class QWidget;

namespace krt550 {

class CParameter;
class CParameterGroup;

/// Statics at the end of a row; each may be null.
struct RowStatics {
    QWidget* unit = nullptr;
    QWidget* minimum = nullptr;
    QWidget* maximum = nullptr;
};

/// Each binding finds the parameter below `root`, keeps it in `parameter` and fills the row's controls from the drive.
/// A parameter that the drive lacks disables the value control and adds a line "- message\n" to `errors`; that is no
/// failure of the binding.

/// False when reading failed (shown): the edit is empty then.
bool BindEditRow(CParameterGroup* root, CParameter*& parameter, quint16 reg, QWidget* label, QLineEdit* edit,
                 QString& errors, const RowStatics& statics);

/// False when reading failed (shown; nothing is selected then), or when the value can be neither found nor added as a
/// choice.
bool BindListRow(CParameterGroup* root, CParameter*& parameter, quint16 reg, QWidget* label, QComboBox* dropDown,
                 QString& errors, const RowStatics& statics = {}, TextSource source = TextSource::WizardFile);

/// Shows name, value and unit in statics. A parameter given is used, otherwise it is looked up.
bool BindDisplayRow(CParameterGroup* root, CParameter*& parameter, quint16 reg, QWidget* label, QWidget* value,
                    QString& errors, QWidget* unit);

/// Shows a parameter that has been read; "n/a" as value and unit when there is none. Each control may be null.
void ShowDisplayRow(const CParameter* parameter, QWidget* label, QWidget* value, QWidget* unit);

/// Binds a value list into the drop-down, any other parameter into the edit.
bool BindRow(CParameterGroup* root, CParameter*& parameter, quint16 reg, QWidget* label, QLineEdit* edit,
             QComboBox* dropDown, QString& errors, const RowStatics& statics);

/// Adds the line "- message\n" that the drive lacks a parameter.
void AppendNotFound(QString& errors, quint16 reg);

/// Whether a parameter is a number, which the cyclic update follows.
bool IsNumeric(const CParameter& parameter);

/// Name of a parameter: the wizard text file's, or the drive's own.
QString ParameterName(const CParameter& parameter);

/// Value of a value-list parameter that a text of its drop-down stands for.
std::optional<quint16> WordOfChoice(const CParameter& parameter, const QString& text,
                                    TextSource source = TextSource::WizardFile);

/// Shows a value's text in an edit, a static or a drop-down.
void ShowValueText(QWidget* control, const QString& text);

/// Writes what the control shows to the drive and reads it back, when the row is marked changed or `force` is set.
/// Reports each failure once and then keeps the row marked. True also when there was nothing to write.
bool WriteRow(CParameter* parameter, QWidget* control, bool force, TextSource source = TextSource::WizardFile);

} // namespace krt550
