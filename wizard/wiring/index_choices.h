#pragma once

#include "wizard/texts/text_records.h"

#include <functional>

class QComboBox;

namespace krt550 {

/// The drop-down of a row that names a signal: "Other", then the list's entries in their order.

/// False when keys and names do not belong together (the lists differ in length).
bool IsSound(const IndexList& list);
void FillIndexChoices(QComboBox& dropDown, const IndexList& list, const std::function<QString(quint32 key)>& number);
/// Position of a key in the drop-down; that of "Other" when the list does not hold it.
int ChoiceOfKey(const IndexList& list, quint32 key);
inline constexpr int kOtherChoice = 0;

} // namespace krt550
