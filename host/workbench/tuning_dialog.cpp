#include "host/workbench/tuning_dialog.h"

#include "host/connected_drive.h"
#include "hostlib/tolvbo32/value_codec.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace krt550 {
namespace {

constexpr qint64 kNextReadMs = 1;

} // namespace

CTuningDialog::CTuningDialog(CConnectedDrive& drive, std::vector<ParameterDescription> parameters,
                             std::vector<ValueChange> changes, QWidget* parent)
    : QDialog(parent), m_drive(drive), m_parameters(std::move(parameters)), m_changes(std::move(changes)),
      m_table(MakeTable()), m_outcome(new QLabel), m_keep(nullptr), m_restoreButton(nullptr) {
    setWindowTitle(QStringLiteral("Controller parameters have changed"));
    auto* layout = new QVBoxLayout(this);
    auto* text = new QLabel(QStringLiteral("Keep the new values, or give the marked parameters their old values back. "
                                           "Either all of them get them back, or none."));
    text->setWordWrap(true);
    layout->addWidget(text);
    layout->addWidget(m_table, 1);
    m_outcome->setWordWrap(true);
    m_outcome->setTextFormat(Qt::PlainText);
    m_outcome->setAccessibleName(QStringLiteral("What has become of it"));
    m_outcome->hide();
    layout->addWidget(m_outcome);
    auto* buttons = new QDialogButtonBox;
    m_keep = buttons->addButton(QStringLiteral("&Keep"), QDialogButtonBox::RejectRole);
    m_restoreButton = buttons->addButton(QStringLiteral("&Restore marked"), QDialogButtonBox::ActionRole);
    layout->addWidget(buttons);
    m_keep->setDefault(true);
    connect(m_keep, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_restoreButton, &QPushButton::clicked, this, [this] { Restore(); });
    m_keep->setFocus();
    resize(m_table->horizontalHeader()->length() + 6 * fontMetrics().averageCharWidth(),
           (12 + int(m_changes.size()) * 2) * fontMetrics().lineSpacing());
}

QTableWidget* CTuningDialog::MakeTable() {
    const QStringList headings{QStringLiteral("Register"), QStringLiteral("Name"), QStringLiteral("Old"),
                               QStringLiteral("New"), QStringLiteral("Unit")};
    auto* table = new QTableWidget(int(m_changes.size()), int(headings.size()));
    table->setHorizontalHeaderLabels(headings);
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setAccessibleName(QStringLiteral("Controller parameters that have changed"));
    for (int row = 0; row < table->rowCount(); ++row) {
        const ValueChange& change = m_changes[std::size_t(row)];
        const ParameterDescription* parameter = FindParameter(m_parameters, change.reg);
        const QString texts[] = {RegisterText(change.reg), parameter->name, ShownText(*parameter, *change.from),
                                 ShownText(*parameter, *change.to), parameter->unit};
        for (int column = 0; column < table->columnCount(); ++column)
            table->setItem(row, column, new QTableWidgetItem(texts[column]));
        table->item(row, 0)->setCheckState(Qt::Checked);
        for (const int number : {2, 3})
            table->item(row, number)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    table->resizeColumnsToContents();
    table->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    return table;
}

void CTuningDialog::Restore() {
    std::vector<ParameterValue> wanted;
    for (std::size_t row = 0; row < m_changes.size(); ++row)
        if (m_table->item(int(row), 0)->checkState() == Qt::Checked)
            wanted.push_back({m_changes[row].reg, *m_changes[row].from});
    if (wanted.empty())
        return Tell({QStringLiteral("No parameter is marked.")});
    QStringList problems;
    m_restore.emplace(m_drive.Drive(), m_drive.Link(), m_parameters);
    if (!m_restore->Plan(wanted, problems))
        return Tell(problems);
    m_keep->setEnabled(false);
    m_restoreButton->setEnabled(false);
    m_table->setEnabled(false);
    Tell({QStringLiteral("Restoring ...")});
    m_timer.StartOnce(kNextReadMs);
}

void CTuningDialog::Step() {
    if (m_restore->Step())
        return m_timer.StartOnce(kNextReadMs);
    Tell(m_restore->Describe());
    m_keep->setText(QStringLiteral("&Close"));
    m_keep->setEnabled(true);
    m_keep->setFocus();
    if (m_restore->HasSucceeded())
        return;
    m_table->setEnabled(true); // once more, when the cause is gone
    m_restoreButton->setEnabled(true);
}

void CTuningDialog::Tell(const QStringList& lines) {
    m_outcome->setText(lines.join(QLatin1Char('\n')));
    m_outcome->show();
}

/// Never in the middle of it.
void CTuningDialog::reject() {
    if (!m_timer.IsActive())
        QDialog::reject();
}

} // namespace krt550
