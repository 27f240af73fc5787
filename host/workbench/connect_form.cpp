#include "host/workbench/connect_form.h"

#include "drive/drive_name.h"
#include "host/link/wire_place.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace krt550 {
namespace {

enum Kind { Simulated, Tcp, Serial };

constexpr const char* kKinds[] = {"Simulated motor", "Modbus TCP", "Modbus RTU (serial)"};
constexpr struct {
    const char* name;
    const char* text;
} kMotors[] = {
    {"S1", "S1, 9.5 kW"}, {"S2", "S2, 5 hp"}, {"S3", "S3, 5 hp, heavy"}, {"S5", "S5, 60 V, little inductance"}};
constexpr const char* kBauds[] = {"1200", "2400", "4800", "9600", "19200", "38400", "57600", "115200"};
constexpr const char* kParities[] = {"8E1", "8N1", "8N2", "8O1", "7E1", "7O1"};

QSpinBox* MakeNumber(int last, int value, const char* name) {
    auto* number = new QSpinBox;
    number->setRange(1, last);
    number->setValue(value);
    number->setAccessibleName(QString::fromLatin1(name));
    return number;
}

QLineEdit* MakeEdit(const char* hint, const char* name) {
    auto* edit = new QLineEdit;
    edit->setPlaceholderText(QString::fromLatin1(hint));
    edit->setAccessibleName(QString::fromLatin1(name));
    return edit;
}

template <std::size_t size> QComboBox* MakeList(const char* const (&texts)[size], const char* chosen) {
    auto* list = new QComboBox;
    for (const char* text : texts)
        list->addItem(QString::fromLatin1(text));
    list->setCurrentText(QString::fromLatin1(chosen));
    return list;
}

/// An entry that the list does not have is added: what a name says is kept.
void Choose(QComboBox& list, const QString& text) {
    if (list.findText(text) < 0)
        list.addItem(text);
    list.setCurrentText(text);
}

QString WithUnit(const QString& name, int unit) {
    return unit == 1 ? name : QStringLiteral("%1,unit=%2").arg(name).arg(unit);
}

} // namespace

CConnectForm::CConnectForm(const QStringList& recent, QWidget* parent)
    : QWidget(parent), m_kind(MakeList(kKinds, kKinds[Simulated])), m_pages(new QStackedWidget) {
    auto* layout = new QVBoxLayout(this);
    auto* kind = new QFormLayout;
    auto* list = new QComboBox;
    list->addItems(recent);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(30);
    connect(list, &QComboBox::textActivated, this, &CConnectForm::SetName);
    kind->addRow(QStringLiteral("&Recent"), list);
    list->setEnabled(!recent.isEmpty());
    kind->addRow(QStringLiteral("&Drive"), m_kind);
    layout->addLayout(kind);
    layout->addWidget(m_pages);
    layout->setContentsMargins(0, 0, 0, 0);
    setFocusProxy(m_kind);
    for (QWidget* page : {MakeSimulated(), MakeTcp(), MakeSerial()}) {
        page->layout()->setContentsMargins(0, 0, 0, 0);
        m_pages->addWidget(page);
    }
    connect(m_kind, &QComboBox::currentIndexChanged, m_pages, &QStackedWidget::setCurrentIndex);
    // The fields of all pages begin at the same place.
    const QList<QLabel*> labels = findChildren<QLabel*>();
    int widest = 0;
    for (const QLabel* label : labels)
        widest = std::max(widest, label->sizeHint().width());
    for (QLabel* label : labels)
        label->setMinimumWidth(widest);
    if (!recent.isEmpty())
        SetName(recent.first());
}

QWidget* CConnectForm::MakeSimulated() {
    auto* page = new QWidget;
    auto* layout = new QFormLayout(page);
    m_motor = new QComboBox;
    for (const auto& motor : kMotors)
        m_motor->addItem(QString::fromLatin1(motor.text), QString::fromLatin1(motor.name));
    m_motor->setCurrentIndex(1);
    m_options = MakeEdit("feedback=tacho,load=10", "Options of the simulated drive");
    m_options->setToolTip(QStringLiteral("As behind the motor in --drive, with commas between: krt550tool --help lists "
                                         "them"));
    layout->addRow(QStringLiteral("&Motor"), m_motor);
    layout->addRow(QStringLiteral("&Options"), m_options);
    return page;
}

QWidget* CConnectForm::MakeTcp() {
    auto* page = new QWidget;
    auto* layout = new QFormLayout(page);
    m_host = MakeEdit("192.168.0.10", "Host name or address");
    m_port = MakeNumber(65535, 502, "Port");
    m_tcpUnit = MakeNumber(255, 1, "Unit");
    layout->addRow(QStringLiteral("&Host"), m_host);
    layout->addRow(QStringLiteral("&Port"), m_port);
    layout->addRow(QStringLiteral("&Unit"), m_tcpUnit);
    return page;
}

QWidget* CConnectForm::MakeSerial() {
    auto* page = new QWidget;
    auto* layout = new QFormLayout(page);
    m_device = MakeEdit("/dev/ttyUSB0", "Serial device");
    m_baud = MakeList(kBauds, "19200");
    m_parity = MakeList(kParities, "8E1");
    m_parity->setToolTip(QStringLiteral("Data bits, parity (E even, O odd, N none), stop bits"));
    m_serialUnit = MakeNumber(247, 1, "Unit");
    layout->addRow(QStringLiteral("D&evice"), m_device);
    layout->addRow(QStringLiteral("&Baud"), m_baud);
    layout->addRow(QStringLiteral("P&arity"), m_parity);
    layout->addRow(QStringLiteral("&Unit"), m_serialUnit);
    return page;
}

QString CConnectForm::Name(QString& error) const {
    error.clear();
    const QString host = m_host->text().trimmed();
    const QString device = m_device->text().trimmed();
    switch (m_kind->currentIndex()) {
    case Tcp:
        if (host.isEmpty())
            error = QStringLiteral("The host is missing: a name, or an address such as 192.168.0.10.");
        return WithUnit(QStringLiteral("modbus-tcp:%1:%2")
                            .arg(host.contains(QLatin1Char(':')) && !host.startsWith(QLatin1Char('['))
                                     ? QLatin1Char('[') + host + QLatin1Char(']')
                                     : host)
                            .arg(m_port->value()),
                        m_tcpUnit->value());
    case Serial:
        if (device.isEmpty())
            error = QStringLiteral("The device is missing: a serial port such as /dev/ttyUSB0.");
        return WithUnit(
            QStringLiteral("modbus-rtu:%1,%2,%3").arg(device, m_baud->currentText(), m_parity->currentText()),
            m_serialUnit->value());
    default:
        return SimulatedName();
    }
}

QString CConnectForm::SimulatedName() const {
    const QString options = m_options->text().remove(QLatin1Char(' '));
    const QString name = QLatin1String("sim:") + m_motor->currentData().toString();
    return options.isEmpty() ? name : name + QLatin1Char(',') + options;
}

void CConnectForm::SetName(const QString& name) {
    QString error;
    if (IsOnWire(name)) {
        const std::optional<WirePlace> place = ParseWirePlace(name, error);
        if (!place)
            return;
        m_kind->setCurrentIndex(place->isSerial ? Serial : Tcp);
        (place->isSerial ? m_serialUnit : m_tcpUnit)->setValue(place->unit);
        if (!place->isSerial) {
            m_host->setText(place->host);
            m_port->setValue(place->port);
            return;
        }
        m_device->setText(place->device);
        Choose(*m_baud, QString::number(place->baud));
        Choose(*m_parity,
               QStringLiteral("%1%2%3").arg(place->dataBits).arg(QLatin1Char(place->parity)).arg(place->stopBits));
        return;
    }
    const std::optional<DriveName> drive = ParseDriveName(name, error);
    if (!drive)
        return;
    m_kind->setCurrentIndex(Simulated);
    const int motor = m_motor->findData(drive->motor);
    m_motor->setCurrentIndex(motor < 0 ? m_motor->findData(QStringLiteral("S2")) : motor);
    const qsizetype comma = name.indexOf(QLatin1Char(','));
    m_options->setText(comma < 0 ? QString() : name.mid(comma + 1));
}

} // namespace krt550
