#pragma once

#include <QDialog>
#include <QEventLoop>

#include <functional>

namespace krt550 {

class CFittingScrollArea;

/// What a person does to a frame: the close button, or Escape.
enum class CloseWay { Button, Escape };

/// The modal top-level window around a content widget, with a loop of its own. The end of the application, and a window
/// that the program itself closes, ask `onCancel`, which is expected to call End. End may be called from inside any handler that
/// the loop dispatches: it hides the window at once, and Run returns when that handler has unwound.
class CModalFrame : public QDialog {
    Q_OBJECT

public:
    /// `content` is borrowed: shown inside while the frame runs, given back without a parent afterwards.
    CModalFrame(QWidget& content, std::function<void()> onCancel);
    /// Has a person asked first: the frame stays unless that calls End. Without it a person is no different.
    void SetPersonCloses(std::function<void(CloseWay)> onClose) { m_onPersonCloses = std::move(onClose); }
    ~CModalFrame() override;

    /// Shows the window and returns the result that End was given.
    int Run();
    void End(int result);
    void reject() override;
    /// Has the window open at this place, moved as far as it takes to lie inside `screen`.
    void OpenAt(QPoint position, const QRect& screen);

    /// Asks every running frame to cancel whose loop the end of the application has stopped from outside.
    static void CancelStoppedFrames();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget& m_content;
    CFittingScrollArea* m_scroll;
    std::function<void()> m_onCancel;
    std::function<void(CloseWay)> m_onPersonCloses;
    QEventLoop m_loop;
    bool m_running = false;
    bool m_ended = false;
    int m_result = 0;
};

} // namespace krt550
