#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QPushButton;

namespace krt550 {

class CConnectForm;

/// Asks where the drive is, and stays until it is connected or somebody gives up.
class CConnectDialog : public QDialog {
public:
    /// Connects a drive by its name; returns why it could not be, or an empty text. May handle events meanwhile.
    using TryConnect = std::function<QString(const QString& name)>;

    /// `recent` are names that were connected before, the last one first; `warning` is shown from the start.
    CConnectDialog(const QStringList& recent, const QString& warning, TryConnect tryConnect, QWidget* parent);

    /// Not while a drive is being connected.
    void reject() override;

private:
    void Try();
    void Tell(const QString& error);

    TryConnect m_tryConnect;
    CConnectForm* m_form;
    QLabel* m_error;
    QPushButton* m_connect;
    bool m_isTrying = false;
};

} // namespace krt550
