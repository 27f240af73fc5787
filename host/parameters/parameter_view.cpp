#include "host/parameters/parameter_view.h"

#include "host/parameters/parameter_filter.h"
#include "host/parameters/parameter_model.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace krt550 {

CParameterView::CParameterView(CParameterModel& model, CParameterFilter& filter, QWidget* parent)
    : QTreeView(parent), m_model(model), m_filter(filter) {
    setObjectName(QStringLiteral("parameters"));
    setAccessibleName(QStringLiteral("Parameters"));
    setModel(&filter);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    setSortingEnabled(true);
    sortByColumn(0, Qt::AscendingOrder);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) { NoteOpen(index, true); });
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) { NoteOpen(index, false); });
    connect(&filter, &QAbstractItemModel::modelReset, this, [this] { ShowGroups(); });
    // A group comes with the first of its values that fits.
    connect(&filter, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex& above, int first, int last) {
        const QScopedValueRollback<bool> showing(m_isShowingGroups, true);
        for (int row = first; !above.isValid() && row <= last; ++row) {
            const QModelIndex index = m_filter.index(row, 0);
            if (m_filter.IsSearching() || openGroups.contains(m_model.GroupOf(m_filter.mapToSource(index))))
                expand(index);
        }
    });
    auto* copy = new QAction(QStringLiteral("&Copy"), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, [this] { QApplication::clipboard()->setText(GetSelectedText()); });
    addAction(copy);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

std::vector<int> CParameterView::GetSeenRows() const {
    std::vector<int> rows;
    const int height = viewport()->height();
    for (QModelIndex index = indexAt(QPoint(0, 0)); index.isValid(); index = indexBelow(index)) {
        if (visualRect(index).top() >= height)
            break;
        if (const int row = m_filter.RowOf(index); row >= 0)
            rows.push_back(row);
    }
    return rows;
}

QString CParameterView::GetSelectedText() const {
    QModelIndexList rows = selectionModel()->selectedRows();
    const auto place = [](const QModelIndex& index) {
        const QModelIndex parent = index.parent();
        return parent.isValid() ? std::pair(parent.row(), index.row()) : std::pair(index.row(), -1);
    };
    std::ranges::sort(rows, {}, place);
    QStringList lines;
    for (const QModelIndex& row : rows)
        lines.append(RowText(row));
    return lines.join(QLatin1Char('\n'));
}

QString CParameterView::RowText(const QModelIndex& index) const {
    QStringList texts;
    for (int place = 0; place < header()->count(); ++place)
        if (const int column = header()->logicalIndex(place); !isColumnHidden(column))
            texts.append(index.siblingAtColumn(column).data().toString());
    return texts.join(QLatin1Char('\t'));
}

void CParameterView::ShowGroups() {
    const QScopedValueRollback<bool> showing(m_isShowingGroups, true);
    if (!m_model.IsGrouped())
        return;
    if (m_filter.IsSearching())
        return expandAll();
    collapseAll();
    for (int row = 0; row < m_filter.rowCount(); ++row)
        if (const QModelIndex index = m_filter.index(row, 0);
            openGroups.contains(m_model.GroupOf(m_filter.mapToSource(index))))
            expand(index);
}

void CParameterView::NoteOpen(const QModelIndex& index, bool isOpen) {
    const int group = m_model.GroupOf(m_filter.mapToSource(index));
    if (m_isShowingGroups || m_filter.IsSearching() || group < 0)
        return;
    if (isOpen)
        openGroups.insert(group);
    else
        openGroups.erase(group);
}

bool CParameterView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const QModelIndex value = index.siblingAtColumn(static_cast<int>(ParameterColumn::Value));
    const bool isMeant = trigger == EditKeyPressed || trigger == DoubleClicked;
    const int row = index.isValid() ? m_filter.RowOf(index) : -1;
    if (isMeant && row >= 0 && !(m_filter.flags(value) & Qt::ItemIsEditable) && onRefused)
        onRefused(row);
    return QTreeView::edit(value.isValid() ? value : index, trigger, event);
}

void CParameterView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        event->ignore();
        return;
    }
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QTreeView::keyPressEvent(event);
    const QModelIndex current = currentIndex();
    if (current.isValid() && m_filter.RowOf(current) < 0)
        setExpanded(current.siblingAtColumn(0), !isExpanded(current.siblingAtColumn(0)));
    else
        edit(current, EditKeyPressed, event);
}

} // namespace krt550
