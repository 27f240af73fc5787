#pragma once

#include "host/backup/restore.h"
#include "hostlib/tolvbo32/clock.h"

#include <QDialog>

#include <optional>

class QLabel;
class QPushButton;
class QTableWidget;

namespace krt550 {

class CConnectedDrive;

/// Old and new values of what a tuning has changed: they are kept, or those that are marked get their old values back,
/// as one transaction.
class CTuningDialog : public QDialog {
public:
    /// `drive` is borrowed; `parameters` are all that it has.
    CTuningDialog(CConnectedDrive& drive, std::vector<ParameterDescription> parameters,
                  std::vector<ValueChange> changes, QWidget* parent);

    void reject() override;

private:
    QTableWidget* MakeTable();
    void Restore();
    void Step();
    void Tell(const QStringList& lines);

    CConnectedDrive& m_drive;
    std::vector<ParameterDescription> m_parameters;
    std::vector<ValueChange> m_changes;
    QTableWidget* m_table;
    QLabel* m_outcome;
    QPushButton* m_keep;
    QPushButton* m_restoreButton;
    std::optional<CRestore> m_restore;
    CClockTimer m_timer{[this] { Step(); }};
};

} // namespace krt550
