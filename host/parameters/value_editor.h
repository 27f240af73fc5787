#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

class QLabel;

namespace krt550 {

struct ParameterRow;

/// Edits values in their place: value lists as drop-downs, everything else as text, with unit and limits in a note
/// below. Enter writes, Esc leaves as it was, and so does a click elsewhere. What cannot be a value is told in the
/// note, and the editor stays.
class CValueEditor : public QStyledItemDelegate {
public:
    /// `rowOf` gives the parameter of an index. The parent is the view.
    CValueEditor(std::function<const ParameterRow&(const QModelIndex&)> rowOf, QWidget* view);

    /// Called when an editor opens.
    std::function<void()> onOpened;
    /// Called when an editor is left with something typed that was not written.
    std::function<void(const ParameterRow& row, const QString& typed)> onLeft;

    /// Leaves the editor that is open as if Esc was pressed.
    void Leave();

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakeText(QWidget* parent, const ParameterRow& row) const;
    QWidget* MakeChoice(QWidget* parent, const ParameterRow& row) const;
    void ShowNote(const QString& text, bool isError) const;
    void PlaceNote() const;
    bool IsGood(const QString& typed) const;
    void Commit(QWidget& editor);
    void Close(QWidget& editor);
    void LoseFocus(QWidget& editor);

    std::function<const ParameterRow&(const QModelIndex&)> m_rowOf;
    QWidget* m_view;
    mutable QPointer<QWidget> m_editor;
    mutable QPointer<QLabel> m_note;
    mutable QPersistentModelIndex m_index; ///< that is being edited
    mutable QString m_former;              ///< text at the begin
};

} // namespace krt550
