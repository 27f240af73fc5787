#pragma once

#include <QWidget>

class QLabel;

namespace krt550 {

class CStop;

/// A small window with the Stop that can be reached while another window is modal: it always belongs to the modal
/// window in front, whoever has opened that. It never takes the keyboard away from it.
class CStopStrip : public QWidget {
public:
    /// Both are borrowed; `owner` is the main window.
    CStopStrip(CStop& stop, const QWidget& owner);

    /// To be called whenever a window has opened or closed.
    void Follow(bool isWanted);
    void ShowText(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Place(const QWindow& modal);

    const QWidget& m_owner;
    QLabel* m_text;
};

} // namespace krt550
