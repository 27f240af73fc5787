#include "wizard/wiring/index_choices.h"

#include "wizard/platform/resources.h"

#include <QComboBox>

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kOther = 237;

} // namespace

bool IsSound(const IndexList& list) {
    return list.keys.size() == list.texts.size();
}

void FillIndexChoices(QComboBox& dropDown, const IndexList& list, const std::function<QString(quint32 key)>& number) {
    QStringList choices(LoadText(kOther));
    for (qsizetype at = 0; at < list.keys.size(); ++at) {
        const quint32 key = list.keys[at];
        choices.append(key == 0 || !number ? list.texts[at] : number(key) + QLatin1Char(' ') + list.texts[at]);
    }
    dropDown.clear();
    dropDown.addItems(choices);
}

int ChoiceOfKey(const IndexList& list, quint32 key) {
    const auto found = std::ranges::lower_bound(list.keys, key);
    return found == list.keys.end() || *found != key ? kOtherChoice : 1 + static_cast<int>(found - list.keys.begin());
}

} // namespace krt550
