#include "host/workbench/connect_dialog.h"

#include "host/workbench/connect_form.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace krt550 {

CConnectDialog::CConnectDialog(const QStringList& recent, const QString& warning, TryConnect tryConnect,
                               QWidget* parent)
    : QDialog(parent), m_tryConnect(std::move(tryConnect)), m_form(new CConnectForm(recent)), m_error(new QLabel),
      m_connect(nullptr) {
    setWindowTitle(QStringLiteral("Connect a drive"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_form);
    m_error->setWordWrap(true);
    m_error->setTextFormat(Qt::PlainText);
    m_error->setAccessibleName(QStringLiteral("Why the drive is not connected"));
    m_error->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_error->setMinimumHeight(3 * fontMetrics().lineSpacing());
    m_error->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(m_error, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    m_connect = buttons->addButton(QStringLiteral("&Connect"), QDialogButtonBox::AcceptRole);
    layout->addWidget(buttons);
    m_connect->setDefault(true);
    m_form->setFocus();
    connect(buttons, &QDialogButtonBox::accepted, this, &CConnectDialog::Try);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Tell(warning);
}

void CConnectDialog::Try() {
    QString error;
    const QString name = m_form->Name(error);
    if (m_isTrying)
        return;
    if (!error.isEmpty())
        return Tell(error);
    m_isTrying = true;
    m_connect->setEnabled(false);
    m_error->setText(QStringLiteral("Connecting ..."));
    m_error->repaint();
    const QPointer<CConnectDialog> alive(this);
    error = m_tryConnect(name);
    if (!alive)
        return;
    m_isTrying = false;
    m_connect->setEnabled(true);
    if (error.isEmpty())
        return accept();
    Tell(error);
}

void CConnectDialog::reject() {
    if (!m_isTrying)
        QDialog::reject();
}

void CConnectDialog::Tell(const QString& error) {
    m_error->setText(error.isEmpty() ? QString() : QStringLiteral("Not connected: %1").arg(error));
}

} // namespace krt550
