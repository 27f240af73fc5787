#include "host/trends/signal_list.h"

#include "host/trends/trend_history.h"

#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

#include <algorithm>

namespace krt550 {
namespace {

constexpr int kRegisterRole = Qt::UserRole;

} // namespace

bool IsTrendSignal(const ParameterDescription& parameter) {
    switch (parameter.type) {
    case ParameterType::Setting:
    case ParameterType::SignedNumber:
    case ParameterType::UnsignedNumber:
    case ParameterType::Counter:
        return !parameter.isValueList() && parameter.dataType != DataType::Bits;
    case ParameterType::ValueList:
    case ParameterType::BitWord:
    case ParameterType::Code:
    case ParameterType::Pointer:
        break;
    }
    return false;
}

CSignalList::CSignalList(QWidget* parent)
    : QWidget(parent), m_found(new QSortFilterProxyModel(this)), m_search(new QLineEdit) {
    m_found->setSourceModel(&m_items);
    m_found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_search->setPlaceholderText(QStringLiteral("Search number, name or unit"));
    m_search->setAccessibleName(QStringLiteral("Search signals"));
    m_search->setClearButtonEnabled(true);
    auto* view = new QListView;
    view->setModel(m_found);
    view->setUniformItemSizes(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setAccessibleName(QStringLiteral("Signals"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_search);
    layout->addWidget(view);
    connect(m_search, &QLineEdit::textChanged, m_found, &QSortFilterProxyModel::setFilterFixedString);
    connect(&m_items, &QStandardItemModel::itemChanged, this, [this](QStandardItem* item) { OnChanged(*item); });
}

void CSignalList::Show(const std::vector<ParameterDescription>& parameters, const std::vector<quint16>& chosen) {
    const auto held = std::exchange(onTick, nullptr);
    m_items.clear();
    int ticked = 0;
    for (const ParameterDescription& parameter : parameters) {
        const bool isChosen = std::ranges::find(chosen, parameter.reg) != chosen.end();
        auto* item = new QStandardItem(TrendSignal{parameter, {}, 0}.Title());
        item->setData(parameter.reg, kRegisterRole);
        item->setCheckable(true);
        item->setCheckState(isChosen ? Qt::Checked : Qt::Unchecked);
        m_items.insertRow(isChosen ? ticked++ : m_items.rowCount(), item);
    }
    onTick = held;
}

void CSignalList::OnChanged(QStandardItem& item) {
    if (!onTick)
        return;
    const bool isTicked = item.checkState() == Qt::Checked;
    if (onTick(static_cast<quint16>(item.data(kRegisterRole).toUInt()), isTicked))
        return;
    const auto held = std::exchange(onTick, nullptr);
    item.setCheckState(isTicked ? Qt::Unchecked : Qt::Checked);
    onTick = held;
}

} // namespace krt550
