#pragma once

#include <QDialog>
#include <QStringList>

#include <memory>

class QLineEdit;
class QProgressBar;
class QStackedWidget;

namespace krt550 {

/// A wizard of two pages, small enough to know by heart, with everything that a play can act on. Both pages hold the
/// same button ids, as the pages of the real one do. It notes what reaches it.
class CToyWizard : public QDialog {
public:
    CToyWizard();
    ~CToyWizard() override;

    const QStringList& Notes() const { return m_notes; }

    static constexpr int kStartPage = 107;
    static constexpr int kStepPage = 100;
    static constexpr int kProcedure = 301; ///< button: runs a procedure that pumps messages
    static constexpr int kStop = 302;      ///< button: stops it
    static constexpr int kAsk = 303;       ///< button: two boxes one after the other
    static constexpr int kLate = 304;      ///< button: opens a box from an event of its own
    static constexpr int kHelp = 93;       ///< button: opens a window that is not modal

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakePage(int layout);
    void FillStartPage(QWidget& page);
    void FillStepPage(QWidget& page);
    void AddButton(QWidget& page, int id, const QString& text, const std::function<void()>& action);
    void RunProcedure();
    void Ask();
    void ShowHelp();

    QStackedWidget* m_pages;
    QProgressBar* m_progress = nullptr;
    std::unique_ptr<QWidget> m_help;
    QStringList m_notes;
    bool m_stopped = false;
};

} // namespace krt550
