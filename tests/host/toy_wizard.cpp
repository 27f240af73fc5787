#include "tests/host/toy_wizard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>

namespace krt550 {
namespace {

template <class Widget> Widget* Add(QWidget& page, Widget* widget, int id) {
    widget->setObjectName(QString::number(id));
    page.layout()->addWidget(widget);
    return widget;
}

} // namespace

CToyWizard::CToyWizard() : m_pages(new QStackedWidget) {
    setWindowTitle(QStringLiteral("Menu"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_pages);
    FillStartPage(*MakePage(kStartPage));
    FillStepPage(*MakePage(kStepPage));
}

CToyWizard::~CToyWizard() = default;

QWidget* CToyWizard::MakePage(int number) {
    auto* page = new QWidget;
    page->setProperty("layout", number);
    new QVBoxLayout(page);
    m_pages->addWidget(page);
    return page;
}

void CToyWizard::AddButton(QWidget& page, int id, const QString& text, const std::function<void()>& action) {
    auto* button = Add(page, new QPushButton(text), id);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, action);
}

void CToyWizard::FillStartPage(QWidget& page) {
    auto* basic = Add(page, new QCheckBox(QStringLiteral("Step")), 160);
    basic->setMinimumWidth(500); // its middle is no place to click
    auto* special = Add(page, new QCheckBox(QStringLiteral("Special")), 171);
    special->hide();
    AddButton(page, 170, QStringLiteral("Advanced"), [special] { special->setVisible(!special->isVisible()); });
    auto* next = Add(page, new QPushButton(QStringLiteral("Next >")), 95);
    next->setEnabled(false);
    AddButton(page, 158, QStringLiteral("Start"), [this] {
        m_pages->setCurrentIndex(1);
        setWindowTitle(QStringLiteral("Step one"));
    });
}

void CToyWizard::FillStepPage(QWidget& page) {
    auto* label = new QLabel(QStringLiteral("Voltage"));
    label->setProperty("register", 9902);
    auto* edit = Add(page, new QLineEdit(QStringLiteral("350")), 29902);
    label->setBuddy(edit);
    Add(page, label, 19902);
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_notes.append(QStringLiteral("changed ") + text); });
    auto* list = Add(page, new QComboBox, 201);
    list->setProperty("register", 9901);
    list->addItems({QStringLiteral("English"), QStringLiteral("Deutsch"), QStringLiteral("Suomi")});
    connect(list, &QComboBox::activated, this,
            [this, list] { m_notes.append(QStringLiteral("chose ") + list->currentText()); });
    auto* tabs = Add(page, new QTabBar, 202);
    tabs->addTab(QStringLiteral("Ramp"));
    tabs->addTab(QStringLiteral("Limits"));
    tabs->setTabEnabled(tabs->addTab(QStringLiteral("Locked")), false);
    connect(tabs, &QTabBar::currentChanged, this,
            [this, tabs](int i) { m_notes.append(QStringLiteral("tab ") + tabs->tabText(i)); });
    m_progress = Add(page, new QProgressBar, 203);
    AddButton(page, kProcedure, QStringLiteral("Autotune"), [this] { RunProcedure(); });
    AddButton(page, kStop, QStringLiteral("Stop"), [this] { m_stopped = true; });
    AddButton(page, kAsk, QStringLiteral("Ask"), [this] { Ask(); });
    AddButton(page, kLate, QStringLiteral("Late"), [this] { QTimer::singleShot(20, this, [this] { Ask(); }); });
    AddButton(page, kHelp, QStringLiteral("Help"), [this] { ShowHelp(); });
    AddButton(page, 95, QStringLiteral("Next >"), [this] { m_notes.append(QStringLiteral("next")); });
    AddButton(page, 91, QStringLiteral("Cancel"), [this] { reject(); });
}

bool CToyWizard::eventFilter(QObject* watched, QEvent* event) {
    const auto* edit = qobject_cast<QLineEdit*>(watched);
    if (edit && event->type() == QEvent::FocusOut && edit->text().toInt() > 1000)
        QMessageBox::warning(this, QStringLiteral("Toy"), QStringLiteral("%1 is\ntoo much").arg(edit->text()));
    return QDialog::eventFilter(watched, event);
}

void CToyWizard::RunProcedure() {
    m_stopped = false;
    for (int i = 0; i < 100 && !m_stopped && isVisible(); ++i) {
        m_progress->setValue(i + 1);
        // Wait for one event at a time, so that the procedure is as long as something happens.
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    m_notes.append(m_stopped     ? QStringLiteral("stopped")
                   : isVisible() ? QStringLiteral("done")
                                 : QStringLiteral("left"));
}

void CToyWizard::Ask() {
    const auto answer = QMessageBox::question(this, QStringLiteral("Toy"), QStringLiteral("Start the motor?"),
                                              QMessageBox::Ok | QMessageBox::Cancel);
    m_notes.append(answer == QMessageBox::Ok ? QStringLiteral("answered ok") : QStringLiteral("answered cancel"));
    if (answer == QMessageBox::Ok)
        QMessageBox::information(this, QStringLiteral("Toy"), QStringLiteral("It turns"));
}

void CToyWizard::ShowHelp() {
    m_help = std::make_unique<QWidget>();
    m_help->setWindowTitle(QStringLiteral("Toy help"));
    m_help->show();
}

} // namespace krt550
