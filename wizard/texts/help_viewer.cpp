#include "wizard/texts/help_viewer.h"

#include "wizard/texts/help_browser.h"
#include "wizard/texts/help_file.h"

#include <QAction>
#include <QDockWidget>
#include <QShortcut>
#include <QStyle>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace krt550 {
namespace {

constexpr int kTopicRole = Qt::UserRole;

} // namespace

CHelpViewer::CHelpViewer(QWidget* owner)
    : QMainWindow(owner, Qt::Window), m_browser(new CHelpBrowser(this)), m_dock(new QDockWidget(tr("Contents"), this)),
      m_contents(new QTreeWidget(m_dock)) {
    setObjectName(QStringLiteral("help"));
    m_contents->setHeaderHidden(true);
    m_contents->setAccessibleName(m_dock->windowTitle());
    m_dock->setObjectName(QStringLiteral("helpContents"));
    m_dock->setFeatures(QDockWidget::DockWidgetClosable);
    m_dock->setWidget(m_contents);
    addDockWidget(Qt::LeftDockWidgetArea, m_dock);
    setCentralWidget(m_browser);
    MakeActions();
    const int line = fontMetrics().height();
    resize(56 * line, 36 * line);
    resizeDocks({m_dock}, {20 * line}, Qt::Horizontal);

    connect(m_browser, &QTextBrowser::sourceChanged, this,
            [this](const QUrl& url) { OnTopicShown(CHelpBrowser::TopicOf(url)); });
    const auto openItem = [this](QTreeWidgetItem* item) {
        const QString topic = item ? item->data(0, kTopicRole).toString() : QString();
        if (!topic.isEmpty())
            ShowTopic(topic);
    };
    connect(m_contents, &QTreeWidget::itemClicked, this, openItem);
    connect(m_contents, &QTreeWidget::itemActivated, this, openItem);
    m_browser->setFocus();
}

void CHelpViewer::MakeActions() {
    auto* bar = addToolBar(tr("Navigation"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [&](const QString& text, QStyle::StandardPixmap icon, const QKeySequence& keys, const char* name) {
        QAction* action = bar->addAction(style()->standardIcon(icon), text);
        action->setShortcut(keys);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText)));
        action->setObjectName(QLatin1String(name));
        return action;
    };
    QAction* back = add(tr("Back"), QStyle::SP_ArrowBack, Qt::ALT | Qt::Key_Left, "helpBack");
    QAction* forward = add(tr("Forward"), QStyle::SP_ArrowForward, Qt::ALT | Qt::Key_Right, "helpForward");
    QAction* home = add(tr("Home"), QStyle::SP_DirHomeIcon, Qt::ALT | Qt::Key_Home, "helpHome");
    connect(back, &QAction::triggered, m_browser, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_browser, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this, [this] { ShowTopic(m_home); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    QAction* contents = m_dock->toggleViewAction();
    contents->setShortcut(Qt::Key_F9);
    contents->setIcon(style()->standardIcon(QStyle::SP_FileDialogDetailedView));
    bar->addAction(contents);

    connect(new QShortcut(QKeySequence::ZoomIn, this), &QShortcut::activated, m_browser,
            [this] { m_browser->zoomIn(); });
    connect(new QShortcut(QKeySequence::ZoomOut, this), &QShortcut::activated, m_browser,
            [this] { m_browser->zoomOut(); });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

void CHelpViewer::SetFile(std::shared_ptr<const CHelpFile> file) {
    FillContents(*file);
    m_home = QStringLiteral("default.htm");
    if (!file->Contains(m_home) && m_contents->topLevelItemCount() > 0)
        m_home = m_contents->topLevelItem(0)->data(0, kTopicRole).toString();
    m_browser->SetFile(std::move(file));
}

void CHelpViewer::FillContents(const CHelpFile& file) {
    m_contents->clear();
    std::vector<QTreeWidgetItem*> parents{m_contents->invisibleRootItem()};
    for (const HelpContentsItem& line : file.ReadContents()) {
        const std::size_t depth = std::min(static_cast<std::size_t>(line.level) + 1, parents.size());
        parents.resize(depth);
        auto* item = new QTreeWidgetItem(parents.back(), {line.title});
        item->setData(0, kTopicRole, line.topic);
        parents.push_back(item);
    }
    m_contents->expandAll();
    m_dock->setVisible(m_contents->topLevelItemCount() > 0);
}

void CHelpViewer::ShowTopic(const QString& topic) {
    m_browser->setSource(CHelpBrowser::UrlOf(topic));
}

void CHelpViewer::ShowSentence(const QString& sentence) {
    m_dock->setVisible(m_contents->topLevelItemCount() > 0);
    m_browser->ShowSentence(sentence);
    setWindowTitle(tr("Help"));
}

void CHelpViewer::OnTopicShown(const QString& topic) {
    const QString title = m_browser->documentTitle();
    setWindowTitle(title.isEmpty() ? topic : title);
    for (QTreeWidgetItemIterator item(m_contents); *item; ++item)
        if ((*item)->data(0, kTopicRole).toString().compare(topic, Qt::CaseInsensitive) == 0) {
            m_contents->setCurrentItem(*item);
            return;
        }
    m_contents->setCurrentItem(nullptr);
}

} // namespace krt550
