#pragma once

#include "host/workbench/drive_state.h"
#include "host/workbench/motor_commands.h"
#include "hostlib/tolvbo32/parameter_description.h"

#include <QWidget>

#include <functional>
#include <vector>

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace krt550 {

class CStop;

/// State of the drive, and the motor by hand.
class CDrivePanel : public QWidget {
public:
    /// `stop` is borrowed.
    explicit CDrivePanel(CStop& stop, QWidget* parent = nullptr);

    /// Borrowed; null: not connected.
    void SetDrive(CConnectedDrive* drive, const std::vector<ParameterDescription>& parameters);
    void ShowState(const SeenState& state);
    /// Gives local control back as the button does, and shows what has become of it. Returns why not, or an empty text.
    QString ReleaseControl();
    /// What the last Stop has come to.
    void ShowStop();
    /// Called when something was commanded.
    std::function<void()> onCommand;

private:
    struct Value {
        quint16 reg;
        QLabel* label;
        ParameterDescription parameter = {};
    };

    QWidget* MakeState();
    QWidget* MakeValues();
    QWidget* MakeCommands();
    QPushButton* AddCommand(QGridLayout& grid, int row, int column, const QString& text, const QString& tip,
                            std::function<QString()> command);
    void Tell(const QString& name, const QString& error);

    CStop& m_stop;
    CMotorCommands m_commands;
    bool m_isConnected = false;
    std::vector<Value> m_values;
    QLabel* m_state = nullptr;
    QLabel* m_control = nullptr;
    QLineEdit* m_reference = nullptr;
    QPushButton* m_take = nullptr;
    QPushButton* m_release = nullptr;
    QPushButton* m_close = nullptr;
    QPushButton* m_open = nullptr;
    QPushButton* m_set = nullptr;
    QPushButton* m_start = nullptr;
    QPushButton* m_stopButton = nullptr;
    QPushButton* m_reset = nullptr;
    QLabel* m_outcome = nullptr;
};

} // namespace krt550
