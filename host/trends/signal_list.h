#pragma once

#include "hostlib/tolvbo32/parameter_description.h"

#include <QStandardItemModel>
#include <QWidget>

#include <functional>
#include <vector>

class QLineEdit;
class QSortFilterProxyModel;

namespace krt550 {

/// All signals there are, to be ticked, with a search by number, name or unit.
class CSignalList : public QWidget {
public:
    explicit CSignalList(QWidget* parent = nullptr);

    /// Shows what can be chosen, and ticks what is, which stands above the others.
    void Show(const std::vector<ParameterDescription>& parameters, const std::vector<quint16>& chosen);
    /// Called when a person ticks a signal or takes the tick away; the answer false takes that back.
    std::function<bool(quint16 reg, bool isChosen)> onTick;

private:
    void OnChanged(QStandardItem& item);

    QStandardItemModel m_items;
    QSortFilterProxyModel* m_found;
    QLineEdit* m_search;
};

/// Whether a parameter is a number that a curve can be drawn of.
bool IsTrendSignal(const ParameterDescription& parameter);

} // namespace krt550
