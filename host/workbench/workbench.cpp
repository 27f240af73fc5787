// What stands where in the main window.
#include "host/workbench/workbench.h"

#include "host/backup/keeping.h"
#include "host/connected_drive.h"
#include "host/parameters/parameter_panel.h"
#include "host/part.h"
#include "host/session.h"
#include "host/workbench/drive_panel.h"
#include "host/workbench/help_window.h"
#include "host/workbench/no_trends.h"
#include "host/workbench/stop_button.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>

namespace krt550 {
namespace {

/// Goes up when the docks are others than before: a state that was saved for others is not restored.
constexpr int kPlacesVersion = 1;
constexpr const char* kGeometryKey = "window/geometry";
constexpr const char* kPlacesKey = "window/places";

CTrendDoor* MakeTrends() {
    QString error;
    auto* const make = LoadPart<decltype(krt550_trends)>("trends", error);
    return make ? make() : new CNoTrends(error);
}

} // namespace

CWorkbench::CWorkbench(CSession& session)
    : m_session(session), m_settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("krt550tool"),
                                     QStringLiteral("workbench")) {
    setWindowTitle(QStringLiteral("KRT550 workbench"));
    setDockNestingEnabled(true);
    m_link = new QLabel;
    m_link->setAccessibleName(QStringLiteral("State of the link"));
    m_link->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(m_link);
    MakeMenus();
    MakeStopBar();
    MakePanels();
    RestorePlaces();
    m_watch.onChange = [this] { ShowState(); };
    m_stop.onChange = [this] { ShowStop(); };
    m_panel->onCommand = [this] { m_watch.LookSoon(); };
    HandOut();
    qApp->installEventFilter(this);
}

CWorkbench::~CWorkbench() {
    m_stop.onChange = {};
}

void CWorkbench::MakeMenus() {
    QMenu* drive = menuBar()->addMenu(QStringLiteral("D&rive"));
    drive->addAction(QStringLiteral("&Connect..."), QKeySequence(QStringLiteral("Ctrl+K")), this,
                     [this] { OpenConnectDialog(); });
    m_disconnect = drive->addAction(QStringLiteral("&Disconnect"), QKeySequence(QStringLiteral("Ctrl+D")), this,
                                    [this] { Leave(); });
    drive->addSeparator();
    m_wizard = drive->addAction(QStringLiteral("Commissioning &wizard..."), QKeySequence(QStringLiteral("Ctrl+W")),
                                this, [this] { OpenWizard(); });
    drive->addAction(QStringLiteral("&Stop the motor\tEsc"), this, [this] { m_stop.Press(); });
    drive->addSeparator();
    drive->addAction(QStringLiteral("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), this, [this] { close(); });
    m_viewMenu = menuBar()->addMenu(QStringLiteral("&View"));
    QMenu* help = menuBar()->addMenu(QStringLiteral("Hel&p"));
    help->addAction(QStringLiteral("&How to work"), QKeySequence(Qt::Key_F1), this,
                    [this] { ShowWorkbenchHelp(this); });
    help->addAction(QStringLiteral("&About"), this, [this] { ShowAbout(this); });
}

/// Neither moved nor closed: it is always at the same place.
void CWorkbench::MakeStopBar() {
    auto* bar = new QToolBar(QStringLiteral("Stop"), this);
    bar->setObjectName(QStringLiteral("stopBar"));
    bar->setMovable(false);
    bar->toggleViewAction()->setVisible(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    auto* button = new CStopButton;
    connect(button, &QPushButton::pressed, this, [this] { m_stop.Press(); });
    button->setText(QStringLiteral("Stop (Esc)"));
    m_stopButton = button;
    bar->addWidget(button);
    addToolBar(Qt::TopToolBarArea, bar);
}

void CWorkbench::MakePanels() {
    m_panel = new CDrivePanel(m_stop);
    auto* scroll = new QScrollArea; // on a small screen, or with large letters
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(m_panel);
    scroll->setMinimumWidth(m_panel->minimumSizeHint().width() +
                            scroll->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    QDockWidget* drive = AddDock("drive", QStringLiteral("Drive"), scroll, Qt::LeftDockWidgetArea);
    m_trends = MakeTrends();
    QDockWidget* trends = AddDock("trends", QStringLiteral("Trends"), m_trends, Qt::RightDockWidgetArea);
    m_parameterPanel = new CParameterPanel(m_session.Options().wizardDirectory + QLatin1String("/Wzkrt550.txt"));
    m_parameterPanel->SetCommands([](const ParameterDescription& parameter) {
        QString reason;
        return KeepingOf(parameter, &reason) == Keeping::Left ? reason : QString();
    });
    QDockWidget* parameters =
        AddDock("parameters", QStringLiteral("Parameters"), m_parameterPanel, Qt::RightDockWidgetArea);
    tabifyDockWidget(trends, parameters);
    setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    trends->raise();
    constexpr int kMost = 10'000; // what the window has
    resizeDocks({drive, trends}, {scroll->minimumWidth(), kMost}, Qt::Horizontal);
    m_viewMenu->addSeparator();
    m_viewMenu->addAction(QStringLiteral("&Usual places"), this,
                          [this, usual = saveState(kPlacesVersion)] { restoreState(usual, kPlacesVersion); });
}

QDockWidget* CWorkbench::AddDock(const char* name, const QString& title, QWidget* panel, Qt::DockWidgetArea area) {
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(QString::fromLatin1(name));
    dock->setWidget(panel);
    addDockWidget(area, dock);
    const int number = int(findChildren<QDockWidget*>().size());
    m_viewMenu->addAction(dock->toggleViewAction());
    auto* go = new QAction(QStringLiteral("Go to %1").arg(title), this);
    go->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(number)));
    connect(go, &QAction::triggered, dock, [dock, panel] {
        dock->show();
        dock->raise();
        dock->activateWindow();
        panel->setFocus(Qt::ShortcutFocusReason);
        if (!panel->hasFocus())
            panel->nextInFocusChain()->setFocus(Qt::ShortcutFocusReason);
    });
    m_viewMenu->addAction(go);
    return dock;
}

void CWorkbench::RestorePlaces() {
    const QSize frame(0, 3 * fontMetrics().lineSpacing()); // it is not known yet
    resize((screen()->availableSize() - frame)
               .boundedTo(QSize(fontMetrics().averageCharWidth() * 200, fontMetrics().lineSpacing() * 50)));
    restoreGeometry(m_settings.value(QLatin1String(kGeometryKey)).toByteArray());
    restoreState(m_settings.value(QLatin1String(kPlacesKey)).toByteArray(), kPlacesVersion);
    m_trends->RestoreState(m_settings);
    m_parameterPanel->RestoreState(m_settings);
}

void CWorkbench::SavePlaces() {
    m_settings.setValue(QLatin1String(kGeometryKey), saveGeometry());
    m_settings.setValue(QLatin1String(kPlacesKey), saveState(kPlacesVersion));
    m_trends->SaveState(m_settings);
    m_parameterPanel->SaveState(m_settings);
    m_settings.sync();
}

void CWorkbench::Open(const QString& drive) {
    show();
    // Behind the first paint: somebody waits for a window, and then for a drive.
    QTimer::singleShot(0, this, [this, drive] { OpenFirst(drive); });
}

void CWorkbench::closeEvent(QCloseEvent* event) {
    if (!m_isClosing)
        SavePlaces();
    m_isClosing = true;
    event->setAccepted(!m_drive);
    if (m_drive)
        return Leave();
    QCoreApplication::quit();
}

bool CWorkbench::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        // In the wizard the key has a meaning of its own. It goes on to whoever it is meant for, too.
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && !m_isWizardOpen)
            m_stop.Press();
        break;
    case QEvent::Show:
    case QEvent::Hide:
        if (object->isWindowType())
            QMetaObject::invokeMethod(
                this, [this] { FollowModal(); }, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(object, event);
}

} // namespace krt550
