#include "host/parameters/parameter_model.h"

#include "host/parameters/parameter_texts.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace krt550 {
namespace {

constexpr quintptr kTopLevel = 0; ///< a group, or in a table a parameter; below a group, its number plus one

constexpr const char* kHeaders[kParameterColumns] = {"No.", "Name", "Value", "Unit", "Minimum", "Maximum", "Default"};

QString TextOf(const ParameterRow& row, ParameterColumn column) {
    switch (column) {
    case ParameterColumn::Register:
        return RegisterText(row.description.reg);
    case ParameterColumn::Name:
        return row.description.name;
    case ParameterColumn::Value:
        return row.word ? CellText(row.description, *row.word) : QString();
    case ParameterColumn::Unit:
        return row.description.unit;
    case ParameterColumn::Minimum:
        return MinimumText(row.description);
    case ParameterColumn::Maximum:
        return MaximumText(row.description);
    case ParameterColumn::Default:
        return DefaultText(row);
    }
    return {};
}

bool IsNumberColumn(ParameterColumn column) {
    return column == ParameterColumn::Value || column == ParameterColumn::Minimum ||
           column == ParameterColumn::Maximum || column == ParameterColumn::Default;
}

} // namespace

void CParameterModel::SetParameters(std::vector<ParameterDescription> parameters, const CParameterTexts& texts) {
    beginResetModel();
    std::ranges::stable_sort(parameters, {}, &ParameterDescription::reg);
    m_rows.clear();
    m_rows.reserve(parameters.size());
    for (ParameterDescription& parameter : parameters) {
        QString toolTip = texts.GetToolTip(parameter.reg);
        if (auto values = texts.GetValueTexts(parameter.reg); parameter.isValueList() && !values.empty())
            parameter.values = std::move(values);
        m_rows.push_back(MakeRow(std::move(parameter), std::move(toolTip)));
    }
    MakeGroups(texts);
    endResetModel();
}

void CParameterModel::MakeGroups(const CParameterTexts& texts) {
    m_groups.clear();
    for (int row = 0; row < GetRowCount(); ++row) {
        const int number = GetRow(row).description.reg / 100;
        if (m_groups.empty() || m_groups.back().number != number)
            m_groups.push_back({number, row, 0, texts.GetGroupName(number)});
        ++m_groups.back().count;
    }
}

void CParameterModel::SetGrouped(bool isGrouped) {
    if (isGrouped == m_isGrouped)
        return;
    beginResetModel();
    m_isGrouped = isGrouped;
    endResetModel();
}

int CParameterModel::RowOf(const QModelIndex& index) const {
    if (!index.isValid() || (m_isGrouped && index.internalId() == kTopLevel))
        return -1;
    return m_isGrouped ? m_groups[index.internalId() - 1].first + index.row() : index.row();
}

QModelIndex CParameterModel::IndexOf(int row, ParameterColumn column) const {
    if (!m_isGrouped)
        return createIndex(row, static_cast<int>(column), kTopLevel);
    const auto above = std::ranges::upper_bound(m_groups, row, {}, &Group::first);
    const auto group = static_cast<std::size_t>(above - m_groups.begin()); // the one before it, plus one
    return createIndex(row - m_groups[group - 1].first, static_cast<int>(column), quintptr{group});
}

int CParameterModel::GroupOf(const QModelIndex& index) const {
    const bool isGroup = m_isGrouped && index.isValid() && index.internalId() == kTopLevel;
    return isGroup ? m_groups[static_cast<std::size_t>(index.row())].number : -1;
}

void CParameterModel::TakeWord(int row, quint16 word) {
    ParameterRow& taken = m_rows[static_cast<std::size_t>(row)];
    if (taken.isFresh && taken.word == word)
        return;
    taken.word = word;
    if (!taken.connected)
        taken.connected = word;
    taken.isFresh = true;
    taken.failure.clear();
    Changed(row);
}

void CParameterModel::TakeFailure(int row, const QString& reason) {
    ParameterRow& failed = m_rows[static_cast<std::size_t>(row)];
    if (!failed.isFresh && failed.failure == reason)
        return;
    failed.isFresh = false;
    failed.failure = reason;
    Changed(row);
}

void CParameterModel::MakeStale() {
    for (ParameterRow& row : m_rows)
        row.isFresh = false;
    constexpr int kLast = kParameterColumns - 1;
    const QList<int> roles = {Qt::ForegroundRole};
    for (int top = 0; top < rowCount(); ++top) {
        const QModelIndex parent = index(top, 0);
        if (const int count = rowCount(parent); count > 0)
            Q_EMIT dataChanged(index(0, 0, parent), index(count - 1, kLast, parent), roles);
    }
    if (!m_isGrouped && !m_rows.empty())
        Q_EMIT dataChanged(index(0, 0), index(GetRowCount() - 1, kLast), roles);
}

void CParameterModel::Changed(int row) {
    const QModelIndex index = IndexOf(row, ParameterColumn::Value);
    Q_EMIT dataChanged(index, index);
}

QModelIndex CParameterModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row()) + 1 : kTopLevel);
}

QModelIndex CParameterModel::parent(const QModelIndex& index) const {
    if (!index.isValid() || index.internalId() == kTopLevel)
        return {};
    return createIndex(static_cast<int>(index.internalId()) - 1, 0, kTopLevel);
}

int CParameterModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid())
        return m_isGrouped ? static_cast<int>(m_groups.size()) : GetRowCount();
    const bool isGroup = GroupOf(parent) >= 0 && parent.column() == 0;
    return isGroup ? m_groups[static_cast<std::size_t>(parent.row())].count : 0;
}

QVariant CParameterModel::data(const QModelIndex& index, int role) const {
    const auto column = static_cast<ParameterColumn>(index.column());
    if (const int group = GroupOf(index); group >= 0) {
        if (role == Qt::DisplayRole && column == ParameterColumn::Register)
            return QString::number(group);
        if ((role == Qt::DisplayRole || role == Qt::ToolTipRole) && column == ParameterColumn::Name)
            return m_groups[static_cast<std::size_t>(index.row())].name;
        return {};
    }
    const int number = RowOf(index);
    if (number < 0)
        return {};
    const ParameterRow& row = GetRow(number);
    switch (role) {
    case Qt::DisplayRole:
        return TextOf(row, column);
    case Qt::ToolTipRole:
        return ToolTipText(row);
    case Qt::TextAlignmentRole:
        return QVariant(
            Qt::Alignment((IsNumberColumn(column) && !row.description.isValueList() ? Qt::AlignRight : Qt::AlignLeft) |
                          Qt::AlignVCenter));
    default:
        return column == ParameterColumn::Value ? ValueData(row, role) : QVariant();
    }
}

/// What differs from the default is bold, what differs from when the drive was connected is italic.
QVariant CParameterModel::ValueData(const ParameterRow& row, int role) const {
    if (role == Qt::EditRole)
        return row.word ? QVariant(int{*row.word}) : QVariant();
    if (role == Qt::ForegroundRole && !row.isFresh)
        return QGuiApplication::palette().placeholderText();
    if (role == Qt::FontRole && (row.DiffersFromDefault() || row.DiffersFromConnected())) {
        QFont font = QGuiApplication::font();
        font.setBold(row.DiffersFromDefault());
        font.setItalic(row.DiffersFromConnected());
        return font;
    }
    return {};
}

QVariant CParameterModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= kParameterColumns)
        return {};
    return QString::fromLatin1(kHeaders[section]);
}

QString CParameterModel::WhyNotEdited(int row) const {
    const ParameterDescription& parameter = GetRow(row).description;
    if (parameter.readOnly)
        return QStringLiteral("the drive shows it only");
    return whatItCommands ? whatItCommands(parameter) : QString();
}

Qt::ItemFlags CParameterModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return {};
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const int row = RowOf(index);
    if (row < 0)
        return flags;
    flags |= Qt::ItemNeverHasChildren;
    const bool isValue = index.column() == static_cast<int>(ParameterColumn::Value);
    if (isEditable && isValue && WhyNotEdited(row).isEmpty())
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool CParameterModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const int row = RowOf(index);
    if (role != Qt::EditRole || row < 0 || !(flags(index) & Qt::ItemIsEditable) || !value.isValid())
        return false;
    const auto word = static_cast<quint16>(value.toUInt());
    if (GetRow(row).word == word)
        return true;
    return onWrite && onWrite(row, word);
}

} // namespace krt550
