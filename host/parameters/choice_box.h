#pragma once

#include <QComboBox>

#include <functional>

namespace krt550 {

/// A drop-down as an editor: its list opens with it, and closes it. Only what is picked from the list counts, so that
/// no arrow key and no wheel chooses what nobody has seen.
class CChoiceBox : public QComboBox {
public:
    explicit CChoiceBox(QWidget* parent);

    std::function<void()> onChosen;
    /// The list was left without a choice.
    std::function<void()> onLeft;

    void hidePopup() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Open();
    void Finish();

    bool m_isChosen = false;
    bool m_isOpen = false;
};

} // namespace krt550
