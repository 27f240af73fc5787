#pragma once

#include <QStringList>

namespace krt550 {

/// Which of the two text files names the values of parameters.
enum class TextSource { WizardFile, ConfigurableFile };

/// The value texts of one of the files.
bool HasValueTexts(TextSource source, const QString& registerText);
bool FindValueText(TextSource source, const QString& registerText, quint16 value, QString& text);
/// The texts of all values, in the order in which a drop-down offers them.
QStringList AllValueTexts(TextSource source, const QString& registerText);

} // namespace krt550
