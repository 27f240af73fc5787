#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace krt550 {

/// Which of the two text files names the values of parameters.
enum class TextSource { WizardFile, ConfigurableFile };

/// The value texts of one of the files.
bool HasValueTexts(TextSource source, const QString& registerText);
bool FindValueText(TextSource source, const QString& registerText, quint16 value, QString& text);
/// All values with their texts, in the order in which a drop-down offers them.
std::vector<std::pair<quint16, QString>> AllValueTexts(TextSource source, const QString& registerText);

} // namespace krt550
