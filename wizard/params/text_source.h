#pragma once

#include <QStringList>

namespace krt550 {

/// Which of the two text files names the values of parameters.
enum class TextSource { WizardFile, ConfigurableFile };

/// The value texts of one of the files.
bool HasValueTexts(TextSource source, quint16 reg);
bool FindValueText(TextSource source, quint16 reg, quint16 value, QString& text);
/// The first value with this text, letter case included.
bool FindValueOfText(TextSource source, quint16 reg, const QString& text, quint16& value);
/// The texts of all values, in the order in which a drop-down offers them.
QStringList AllValueTexts(TextSource source, quint16 reg);

} // namespace krt550
