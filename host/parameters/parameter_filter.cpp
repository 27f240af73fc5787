#include "host/parameters/parameter_filter.h"

#include "host/parameters/parameter_model.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <algorithm>

namespace krt550 {
namespace {

/// The number that a column is sorted by; nothing where a text is.
std::optional<double> SortNumber(const ParameterRow& row, ParameterColumn column) {
    const ParameterDescription& parameter = row.description;
    switch (column) {
    case ParameterColumn::Register:
        return parameter.reg;
    case ParameterColumn::Value:
        return parameter.isValueList() || !row.word ? std::nullopt : std::optional(ShownNumber(parameter, *row.word));
    case ParameterColumn::Default:
        return parameter.isValueList() || parameter.readOnly ? std::nullopt
                                                             : std::optional(ShownNumber(parameter, row.defaultWord));
    case ParameterColumn::Minimum:
        return MinimumText(parameter).isEmpty() ? std::nullopt : std::optional(ShownRange(parameter).low);
    case ParameterColumn::Maximum:
        return MaximumText(parameter).isEmpty() ? std::nullopt : std::optional(ShownRange(parameter).high);
    case ParameterColumn::Name:
    case ParameterColumn::Unit:
        break;
    }
    return std::nullopt;
}

} // namespace

CParameterFilter::CParameterFilter(CParameterModel& model) : m_model(model) {
    setRecursiveFilteringEnabled(model.IsGrouped());
    setSourceModel(&model);
}

void CParameterFilter::SetConditions(const Conditions& conditions) {
    if (conditions == m_conditions)
        return;
    m_conditions = conditions;
    m_words.clear();
    const QStringList words = conditions.search.toLower().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const bool isNumber = std::ranges::all_of(word, [](QChar c) { return c == u'.' || (c >= u'0' && c <= u'9'); });
        m_words.push_back({word.toUtf8(), isNumber});
    }
    // As a whole: thousands of single rows that come and go would keep a view busy for seconds.
    invalidate();
}

bool CParameterFilter::IsSearching() const {
    return !m_words.empty() || m_conditions.changedFromDefault || m_conditions.changedSinceConnect;
}

void CParameterFilter::SetGrouped(bool isGrouped) {
    if (isGrouped == m_model.IsGrouped())
        return;
    setRecursiveFilteringEnabled(isGrouped);
    m_model.SetGrouped(isGrouped);
}

void CParameterFilter::sort(int column, Qt::SortOrder order) {
    const bool isOrderOfModel = column == static_cast<int>(ParameterColumn::Register) && order == Qt::AscendingOrder;
    QSortFilterProxyModel::sort(isOrderOfModel ? -1 : column, order);
}

int CParameterFilter::CountShown() const {
    if (!m_model.IsGrouped())
        return rowCount();
    int count = 0;
    for (int group = 0; group < rowCount(); ++group)
        count += rowCount(index(group, 0));
    return count;
}

int CParameterFilter::RowOf(const QModelIndex& index) const {
    return m_model.RowOf(mapToSource(index));
}

bool CParameterFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    const int number = m_model.RowOf(m_model.index(row, 0, parent));
    return number >= 0 && Accepts(m_model.GetRow(number));
}

bool CParameterFilter::Accepts(const ParameterRow& row) const {
    if (m_conditions.changedFromDefault && !row.DiffersFromDefault())
        return false;
    if (m_conditions.changedSinceConnect && !row.DiffersFromConnected())
        return false;
    if (m_conditions.readOnlyHidden && row.description.readOnly)
        return false;
    return std::ranges::all_of(m_words, [&row](const Word& word) { return Contains(row, word); });
}

bool CParameterFilter::Contains(const ParameterRow& row, const Word& word) {
    if (!word.isNumber)
        return row.searchText.contains(word.text);
    const qsizetype endOfName = row.searchText.indexOf('\n');
    return QByteArray::number(row.description.reg).startsWith(word.text) ||
           RegisterText(row.description.reg).toLatin1().startsWith(word.text) ||
           QByteArrayView(row.searchText).first(endOfName).contains(word.text);
}

bool CParameterFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const int leftRow = m_model.RowOf(left);
    const int rightRow = m_model.RowOf(right);
    const auto column = static_cast<ParameterColumn>(left.column());
    if (leftRow < 0 || rightRow < 0) { // groups stay in their order, unless the numbers are turned round
        const bool isTurned = sortOrder() == Qt::DescendingOrder && column != ParameterColumn::Register;
        return (left.row() < right.row()) != isTurned;
    }
    const std::optional<double> leftNumber = SortNumber(m_model.GetRow(leftRow), column);
    const std::optional<double> rightNumber = SortNumber(m_model.GetRow(rightRow), column);
    if (leftNumber && rightNumber && *leftNumber != *rightNumber)
        return *leftNumber < *rightNumber;
    if (leftNumber.has_value() != rightNumber.has_value())
        return leftNumber.has_value();
    const int order =
        leftNumber ? 0 : QString::compare(left.data().toString(), right.data().toString(), Qt::CaseInsensitive);
    return order != 0 ? order < 0 : leftRow < rightRow;
}

} // namespace krt550
