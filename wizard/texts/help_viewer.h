#pragma once

#include <QMainWindow>

#include <memory>

class QDockWidget;
class QTreeWidget;

namespace krt550 {

class CHelpBrowser;
class CHelpFile;

/// The help window: a topic, its neighbours in a tree of contents, and the way back.
///
/// It belongs to the window that asked for help, so that it can be used while that window is modal, and goes with it.
class CHelpViewer : public QMainWindow {
    Q_OBJECT

public:
    explicit CHelpViewer(QWidget* owner);

    void SetFile(std::shared_ptr<const CHelpFile> file);
    void ShowTopic(const QString& topic);
    /// Shows why there is no help.
    void ShowSentence(const QString& sentence);

private:
    void MakeActions();
    void FillContents(const CHelpFile& file);
    void OnTopicShown(const QString& topic);

    CHelpBrowser* m_browser;
    QDockWidget* m_dock;
    QTreeWidget* m_contents;
    QString m_home;
};

} // namespace krt550
