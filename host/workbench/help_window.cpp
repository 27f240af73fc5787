#include "host/workbench/help_window.h"

#include "host/options.h"

#include <QFile>
#include <QMessageBox>
#include <QShortcut>
#include <QTextBrowser>

/// The linker leaves out what nobody names.
static void KeepResource() {
    Q_INIT_RESOURCE(workbench);
}

namespace krt550 {

void ShowWorkbenchHelp(QWidget* owner) {
    KeepResource();
    const QString name = QStringLiteral("workbenchHelp");
    auto* window = owner->findChild<QTextBrowser*>(name, Qt::FindDirectChildrenOnly);
    if (!window) {
        window = new QTextBrowser(owner);
        window->setWindowFlag(Qt::Window);
        window->setObjectName(name);
        window->setWindowTitle(QStringLiteral("How to work with the workbench"));
        window->setAccessibleName(window->windowTitle());
        QFile page(QStringLiteral(":/workbench/help.html"));
        if (page.open(QIODevice::ReadOnly))
            window->setHtml(QString::fromUtf8(page.readAll()));
        window->resize(window->fontMetrics().averageCharWidth() * 90, window->fontMetrics().lineSpacing() * 35);
        QObject::connect(new QShortcut(QKeySequence::Close, window), &QShortcut::activated, window, &QWidget::close);
    }
    window->show();
    window->raise();
    window->activateWindow();
}

void ShowAbout(QWidget* owner) {
    QMessageBox box(QMessageBox::Information, QStringLiteral("About"),
                    VersionText().trimmed() +
                        QStringLiteral("\n\nThe workbench for a DC motor drive: connect it, look at it, commission it, "
                                       "record it."),
                    QMessageBox::Ok, owner);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace krt550
