#include "wizard/texts/context_help.h"

#include "wizard/texts/help_file.h"
#include "wizard/texts/help_viewer.h"
#include "wizard/texts/wizard_directory.h"

#include <QHash>
#include <QPointer>
#include <QSet>

namespace krt550 {
namespace {

/// What is known of help so far: the file in use, the window, and what was missing.
struct HelpState {
    QString path;
    std::shared_ptr<const CHelpFile> file;
    QPointer<CHelpViewer> viewer;
    QSet<QString> missingTopics;     ///< targets
    QHash<QString, QString> refused; ///< by path of a file: why it cannot be shown; empty when it is missing
};

HelpState& State() {
    static HelpState state;
    return state;
}

std::shared_ptr<const CHelpFile> OpenFile(const QString& path) {
    HelpState& state = State();
    if (state.refused.contains(path))
        return nullptr;
    if (state.path != path || !state.file) {
        QString failure;
        state.file = CHelpFile::Open(MachinePath(path), failure);
        state.path = path;
        if (!state.file)
            state.refused.insert(path, failure);
        else if (state.viewer)
            state.viewer->SetFile(state.file);
    }
    return state.file;
}

/// The one viewer, with the owner's window as its parent.
CHelpViewer& ViewerOf(QWidget* owner) {
    HelpState& state = State();
    QWidget* window = owner ? owner->window() : nullptr;
    if (!state.viewer) {
        state.viewer = new CHelpViewer(window);
        if (state.file)
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
    if (command != kDisplayTopic || at < 0 || State().missingTopics.contains(target))
        return 0;
    const QString path = target.left(at);
    const std::shared_ptr<const CHelpFile> file = OpenFile(path);
    const QString refusal = State().refused.value(path);
    if (!file && refusal.isEmpty())
        return 0;
    const QString topic = target.mid(at + separator.size());
    if (file && !file->Contains(topic.section(u'#', 0, 0))) {
        State().missingTopics.insert(target);
        return 0;
    }
    CHelpViewer& viewer = ViewerOf(owner);
    if (file)
        viewer.ShowTopic(topic);
    else
        viewer.ShowSentence(refusal);
    viewer.setWindowState(viewer.windowState() & ~Qt::WindowMinimized);
    viewer.show();
    viewer.raise();
    viewer.activateWindow();
    return reinterpret_cast<quintptr>(&viewer);
}

} // namespace krt550
