#include "host/workbench/drive_panel.h"

#include "host/workbench/stop.h"
#include "host/workbench/stop_button.h"
#include "hostlib/tolvbo32/value_codec.h"
#include "modbus/register_map.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace krt550 {
namespace {

constexpr struct {
    quint16 reg;
    const char* name;
} kValues[] = {{watched::kReference, "Speed reference"},
               {watched::kSpeed, "Actual speed"},
               {watched::kArmatureCurrent, "Armature current"},
               {watched::kFieldCurrent, "Field current"}};
const QString kNothing = QStringLiteral("\u2013");

QLabel* MakeText(const QString& accessibleName) {
    auto* label = new QLabel;
    label->setAccessibleName(accessibleName);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

} // namespace

CDrivePanel::CDrivePanel(CStop& stop, QWidget* parent) : QWidget(parent), m_stop(stop) {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeState());
    layout->addWidget(MakeValues());
    layout->addWidget(MakeCommands());
    m_outcome = MakeText(QStringLiteral("Outcome of the last command"));
    layout->addWidget(m_outcome);
    layout->addStretch();
    SetDrive(nullptr, {});
}

QWidget* CDrivePanel::MakeState() {
    auto* box = new QGroupBox(QStringLiteral("State"));
    auto* layout = new QVBoxLayout(box);
    m_state = MakeText(QStringLiteral("State of the drive"));
    QFont font = m_state->font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    font.setBold(true);
    m_state->setFont(font);
    m_control = MakeText(QStringLiteral("Control place"));
    layout->addWidget(m_state);
    layout->addWidget(m_control);
    return box;
}

QWidget* CDrivePanel::MakeValues() {
    auto* box = new QGroupBox(QStringLiteral("Actual values"));
    auto* layout = new QFormLayout(box);
    for (const auto& value : kValues) {
        QLabel* label = MakeText(QString::fromLatin1(value.name));
        label->setAlignment(Qt::AlignRight);
        layout->addRow(QString::fromLatin1(value.name), label);
        m_values.push_back({.reg = value.reg, .label = label});
    }
    return box;
}

QWidget* CDrivePanel::MakeCommands() {
    auto* box = new QGroupBox(QStringLiteral("Motor by hand"));
    auto* grid = new QGridLayout(box);
    for (const int column : {0, 1})
        grid->setColumnStretch(column, 1);
    m_take = AddCommand(*grid, 0, 0, QStringLiteral("Take &local control"),
                        QStringLiteral("This program commands the drive from now on"),
                        [this] { return m_commands.TakeControl(); });
    m_release = AddCommand(*grid, 0, 1, QStringLiteral("&Give back"),
                           QStringLiteral("Opens the contactor and gives local control back; at standstill"),
                           [this] { return m_commands.ReleaseControl(); });
    m_close = AddCommand(*grid, 1, 0, QStringLiteral("&Close contactor"), QStringLiteral("Main contactor on"),
                         [this] { return m_commands.CloseContactor(); });
    m_open =
        AddCommand(*grid, 1, 1, QStringLiteral("&Open contactor"), QStringLiteral("Main contactor off; at standstill"),
                   [this] { return m_commands.OpenContactor(); });
    m_reference = new QLineEdit(QStringLiteral("0"));
    m_reference->setAlignment(Qt::AlignRight);
    m_reference->setToolTip(QStringLiteral("Speed [rpm] within the limits 20.01 and 20.02"));
    m_reference->setAccessibleName(QStringLiteral("Speed reference in rpm"));
    auto* label = new QLabel(QStringLiteral("Speed &reference [rpm]"));
    label->setWordWrap(true);
    label->setBuddy(m_reference);
    grid->addWidget(label, 2, 0);
    grid->addWidget(m_reference, 2, 1);
    m_start = AddCommand(*grid, 3, 0, QStringLiteral("&Start"),
                         QStringLiteral("Sends the speed reference and starts the motor"),
                         [this] { return m_commands.Start(m_reference->text()); });
    m_set = AddCommand(*grid, 3, 1, QStringLiteral("Set r&eference"),
                       QStringLiteral("Sends the speed reference; Enter in the field does the same"),
                       [this] { return m_commands.SetReference(m_reference->text()); });
    connect(m_reference, &QLineEdit::returnPressed, m_set, &QPushButton::click);
    m_stopButton = new CStopButton;
    connect(m_stopButton, &QPushButton::pressed, this, [this] { m_stop.Press(); });
    grid->addWidget(m_stopButton, 4, 0);
    m_reset = AddCommand(*grid, 4, 1, QStringLiteral("Reset &fault"), QStringLiteral("Acknowledges a trip"),
                         [this] { return m_commands.Reset(); });
    return box;
}

QPushButton* CDrivePanel::AddCommand(QGridLayout& grid, int row, int column, const QString& text, const QString& tip,
                                     std::function<QString()> command) {
    auto* button = new QPushButton(text);
    button->setToolTip(tip);
    button->setAccessibleDescription(tip);
    const QString name = QString(text).remove(QLatin1Char('&'));
    connect(button, &QPushButton::clicked, this, [this, name, command = std::move(command)] {
        Tell(name, command());
        if (onCommand)
            onCommand();
    });
    grid.addWidget(button, row, column);
    return button;
}

void CDrivePanel::Tell(const QString& name, const QString& error) {
    m_outcome->setText(QStringLiteral("%1: %2").arg(name, error.isEmpty() ? QStringLiteral("done") : error));
}

QString CDrivePanel::ReleaseControl() {
    const QString error = m_commands.ReleaseControl();
    Tell(QStringLiteral("Give back"), error);
    return error;
}

void CDrivePanel::ShowStop() {
    m_outcome->setText(m_stop.Text());
}

void CDrivePanel::SetDrive(CConnectedDrive* drive, const std::vector<ParameterDescription>& parameters) {
    m_commands.SetDrive(drive);
    m_isConnected = drive != nullptr;
    for (Value& value : m_values) {
        value.parameter = {};
        for (const ParameterDescription& parameter : parameters)
            if (parameter.reg == value.reg)
                value.parameter = parameter;
    }
    m_outcome->clear();
    ShowState({});
}

void CDrivePanel::ShowState(const SeenState& state) {
    const bool answers = m_isConnected && state.Answers();
    const bool holds = answers && state.Has(wire_status::kLocalControl);
    const bool closed = state.Has(wire_status::kContactorClosed);
    const bool stands = state.Has(wire_status::kStopped);
    const bool runs = state.Has(wire_status::kRunning);
    m_state->setText(m_isConnected ? state.Text() : QStringLiteral("Not connected"));
    m_control->setText(answers         ? QStringLiteral("Control place: %1").arg(state.ControlText())
                       : m_isConnected ? state.silence
                                       : QString());
    for (const Value& value : m_values) {
        const auto word = state.words.find(value.reg);
        value.label->setText(word == state.words.end()
                                 ? kNothing
                                 : ShownText(value.parameter, *word) + QLatin1Char(' ') + value.parameter.unit);
    }
    m_take->setEnabled(answers && !holds);
    m_release->setEnabled(holds && stands);
    m_close->setEnabled(holds && !closed);
    m_open->setEnabled(holds && closed && stands);
    m_reference->setEnabled(holds);
    m_set->setEnabled(holds);
    m_start->setEnabled(holds && closed && !runs && !m_stop.IsUnderWay() && !state.Has(wire_status::kFault));
    m_stopButton->setEnabled(m_isConnected);
    m_reset->setEnabled(answers && state.Has(wire_status::kFault));
}

} // namespace krt550
