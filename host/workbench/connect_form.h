#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;
class QSpinBox;
class QStackedWidget;

namespace krt550 {

/// Where a drive is, as fields to fill in; as a name it is what --drive takes.
class CConnectForm : public QWidget {
public:
    /// `recent` are names to choose from, the last one first; the fields begin with that.
    explicit CConnectForm(const QStringList& recent, QWidget* parent = nullptr);

    /// Empty, and what is missing in `error`, when the fields name no drive.
    QString Name(QString& error) const;
    /// Fills the fields in; a name that reads like none leaves them as they are.
    void SetName(const QString& name);

private:
    QWidget* MakeSimulated();
    QWidget* MakeTcp();
    QWidget* MakeSerial();
    QString SimulatedName() const;

    QComboBox* m_kind;
    QStackedWidget* m_pages;
    QComboBox* m_motor = nullptr;
    QLineEdit* m_options = nullptr;
    QLineEdit* m_host = nullptr;
    QSpinBox* m_port = nullptr;
    QSpinBox* m_tcpUnit = nullptr;
    QLineEdit* m_device = nullptr;
    QComboBox* m_baud = nullptr;
    QComboBox* m_parity = nullptr;
    QSpinBox* m_serialUnit = nullptr;
};

} // namespace krt550
