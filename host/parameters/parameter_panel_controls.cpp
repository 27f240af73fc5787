// The panel's controls: search, filters, columns, keys, and what of them is remembered.
#include "host/parameters/parameter_panel.h"

#include "host/parameters/parameter_view.h"
#include "host/parameters/value_editor.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSettings>
#include <QShortcut>
#include <QToolButton>

namespace krt550 {
namespace {

const QString kSettings = QStringLiteral("parameters");

/// Widths of the columns in characters.
constexpr int kColumnWidths[kParameterColumns] = {9, 46, 26, 8, 11, 11, 16};

QCheckBox* MakeCheck(QWidget* parent, const char* name, const char* text, const char* toolTip) {
    auto* check = new QCheckBox(QLatin1String(text), parent);
    check->setObjectName(QLatin1String(name));
    check->setToolTip(QLatin1String(toolTip));
    return check;
}

} // namespace

QWidget* CParameterPanel::MakeFilters() {
    auto* filters = new QWidget(this);
    m_search = new QLineEdit(filters);
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setAccessibleName(QStringLiteral("Search"));
    m_search->setPlaceholderText(QStringLiteral("Number, name or text (Ctrl+F)"));
    m_search->setClearButtonEnabled(true);
    m_fromDefault = MakeCheck(filters, "changedFromDefault", "Changed from d&efault",
                              "Only what differs from the default. Such values are bold.");
    m_sinceConnect = MakeCheck(filters, "changedSinceConnect", "Changed since co&nnect",
                               "Only what differs from when the drive was connected. Such values are italic.");
    m_readOnlyHidden = MakeCheck(filters, "readOnlyHidden", "Hide &read-only", "Only what can be edited.");
    m_grouped = MakeCheck(filters, "grouped", "In grou&ps", "Below their groups, or as one table.");
    m_grouped->setChecked(true);
    auto* columns = new QToolButton(filters);
    columns->setObjectName(QStringLiteral("columns"));
    columns->setText(QStringLiteral("Colu&mns"));
    columns->setPopupMode(QToolButton::InstantPopup);
    columns->setFocusPolicy(Qt::StrongFocus);
    m_columns = new QMenu(columns);
    columns->setMenu(m_columns);
    m_count->setAccessibleName(QStringLiteral("Parameters shown"));

    auto* layout = new QGridLayout(filters);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_search, 0, 0, 1, 3);
    layout->addWidget(m_count, 0, 3);
    layout->addWidget(m_fromDefault, 1, 0);
    layout->addWidget(m_sinceConnect, 1, 1);
    layout->addWidget(m_readOnlyHidden, 2, 0);
    layout->addWidget(m_grouped, 2, 1);
    layout->addWidget(columns, 2, 3, Qt::AlignRight);
    layout->setColumnStretch(2, 1);
    QWidget* last = m_search;
    for (QWidget* next :
         std::initializer_list<QWidget*>{m_fromDefault, m_sinceConnect, m_readOnlyHidden, m_grouped, columns, m_view})
        setTabOrder(std::exchange(last, next), next);

    connect(m_search, &QLineEdit::textChanged, this, [this] { ApplyConditions(); });
    for (const QCheckBox* check : {m_fromDefault, m_sinceConnect, m_readOnlyHidden})
        connect(check, &QCheckBox::toggled, this, [this] { ApplyConditions(); });
    connect(m_grouped, &QCheckBox::toggled, this, [this](bool isGrouped) {
        m_editor->Leave();
        m_filter.SetGrouped(isGrouped);
        m_view->setRootIsDecorated(isGrouped);
        ShowCount();
        m_refresh.Look();
    });
    return filters;
}

void CParameterPanel::MakeColumns() {
    QHeaderView& header = *m_view->header();
    header.setStretchLastSection(false);
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&header, &QWidget::customContextMenuRequested, this,
            [this, &header](const QPoint& at) { m_columns->popup(header.mapToGlobal(at)); });
    for (int column = 0; column < kParameterColumns; ++column) {
        const int indentation = column == 0 ? 2 * m_view->indentation() : 0;
        const int width = kColumnWidths[column] * m_view->fontMetrics().averageCharWidth();
        m_view->setColumnWidth(column, width + indentation);
        // Without number and value nobody could tell what is edited.
        if (column == static_cast<int>(ParameterColumn::Register) || column == static_cast<int>(ParameterColumn::Value))
            continue;
        QAction* action = m_columns->addAction(m_model.headerData(column, Qt::Horizontal).toString());
        action->setCheckable(true);
        connect(action, &QAction::toggled, this,
                [this, column](bool isShown) { m_view->setColumnHidden(column, !isShown); });
        connect(m_columns, &QMenu::aboutToShow, action,
                [this, action, column] { action->setChecked(!m_view->isColumnHidden(column)); });
    }
}

void CParameterPanel::BindKeys() {
    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WindowShortcut); // from the other panels, too, while this one is seen
    connect(find, &QShortcut::activated, this, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    connect(m_search, &QLineEdit::returnPressed, this, [this] { GoToFound(); });
    setFocusProxy(m_search);
}

/// From the search to the first of what it has found.
void CParameterPanel::GoToFound() {
    QModelIndex index = m_filter.index(0, 0);
    if (const QModelIndex below = m_filter.index(0, 0, index); m_view->isExpanded(index) && below.isValid())
        index = below;
    m_view->setCurrentIndex(index);
    m_view->setFocus(Qt::OtherFocusReason);
}

void CParameterPanel::SaveState(QSettings& settings) const {
    settings.beginGroup(kSettings);
    for (const QCheckBox* check : {m_fromDefault, m_sinceConnect, m_readOnlyHidden, m_grouped})
        settings.setValue(check->objectName(), check->isChecked());
    settings.setValue(QStringLiteral("columns"), m_view->header()->saveState());
    QStringList groups;
    for (const int group : m_view->openGroups)
        groups.append(QString::number(group));
    settings.setValue(QStringLiteral("openGroups"), groups);
    settings.endGroup();
}

void CParameterPanel::RestoreState(QSettings& settings) {
    settings.beginGroup(kSettings);
    for (QCheckBox* check : {m_fromDefault, m_sinceConnect, m_readOnlyHidden, m_grouped})
        check->setChecked(settings.value(check->objectName(), check->isChecked()).toBool());
    m_view->header()->restoreState(settings.value(QStringLiteral("columns")).toByteArray());
    m_view->sortByColumn(m_view->header()->sortIndicatorSection(), m_view->header()->sortIndicatorOrder());
    m_view->openGroups.clear();
    for (const QString& group : settings.value(QStringLiteral("openGroups")).toStringList())
        m_view->openGroups.insert(group.toInt());
    m_view->ShowGroups();
    settings.endGroup();
}

} // namespace krt550
