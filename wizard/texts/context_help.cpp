#include "wizard/texts/context_help.h"

#include "wizard/texts/help_file.h"
#include "wizard/texts/help_viewer.h"
#include "wizard/texts/wizard_directory.h"

#include <QPointer>
#include <QSet>

namespace krt550 {
namespace {

/// What is known of help so far: the file in use, the window, and what was missing.
struct HelpState {
    QString path;
    std::shared_ptr<const CHelpFile> file;
    QPointer<CHelpViewer> viewer;
    QSet<QString> missing; ///< paths of files, targets of topics
};

HelpState& State() {
    static HelpState state;
    return state;
}

std::shared_ptr<const CHelpFile> OpenFile(const QString& path) {
    HelpState& state = State();
    if (state.missing.contains(path))
        return nullptr;
    if (state.path != path || !state.file) {
        state.file = CHelpFile::Open(MachinePath(path));
        state.path = path;
        if (state.viewer && state.file)
            state.viewer->SetFile(state.file);
    }
    if (!state.file)
        state.missing.insert(path);
    return state.file;
}

/// The one viewer, with the owner's window as its parent.
CHelpViewer& ViewerOf(QWidget* owner) {
    HelpState& state = State();
    QWidget* window = owner ? owner->window() : nullptr;
    if (!state.viewer) {
        state.viewer = new CHelpViewer(window);
        state.viewer->SetFile(state.file);
    } else if (window != state.viewer && window != state.viewer->parentWidget()) {
        state.viewer->setParent(window, state.viewer->windowFlags());
    }
    return *state.viewer;
}

} // namespace

void ShowHelp(QWidget* owner, const QString& topic) {
    static const QString fileName = QStringLiteral("KRT550HelpEnglish.chm");
    CallHtmlHelp(owner, WizardFilePath(fileName) + QStringLiteral("::/") + topic, kDisplayTopic, 0);
}

quintptr CallHtmlHelp(QWidget* owner, const QString& target, unsigned command, quintptr) {
    static const QString separator = QStringLiteral("::/");
    const qsizetype at = target.indexOf(separator);
    if (command != kDisplayTopic || at < 0 || State().missing.contains(target))
        return 0;
    const std::shared_ptr<const CHelpFile> file = OpenFile(target.left(at));
    const QString topic = target.mid(at + separator.size());
    if (!file || !file->Contains(topic.section(u'#', 0, 0))) {
        State().missing.insert(target);
        return 0;
    }
    CHelpViewer& viewer = ViewerOf(owner);
    viewer.ShowTopic(topic);
    viewer.setWindowState(viewer.windowState() & ~Qt::WindowMinimized);
    viewer.show();
    viewer.raise();
    viewer.activateWindow();
    return reinterpret_cast<quintptr>(&viewer);
}

} // namespace krt550
