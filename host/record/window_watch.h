#pragma once

#include <QHash>
#include <QObject>

#include <functional>

class QMessageBox;
class QWidget;

namespace krt550 {

class CRecorder;

/// Records what a person sees: the pages that come to the front, the message boxes, and how each box was answered.
class CWindowWatch : public QObject {
public:
    /// Borrowed. Watches all windows of the application as long as it lives.
    explicit CWindowWatch(CRecorder& recorder);

    /// Called once, when the first window is painted.
    std::function<void()> onPainted;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void OnBox(QMessageBox& box);
    void OnAnswer(QObject* box, const QString& answer);
    void OnPage(const QWidget& page, int layout);

    CRecorder& m_recorder;
    QHash<QObject*, qint64> m_open; ///< boxes that wait for an answer, and their events
    int m_layout = 0;               ///< of the page that was noted last
    QString m_title;
};

} // namespace krt550
