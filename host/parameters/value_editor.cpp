#include "host/parameters/value_editor.h"

#include "host/parameters/choice_box.h"
#include "host/parameters/parameter_row.h"
#include "hostlib/tolvbo32/typed_value.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace krt550 {
namespace {

/// Limits and unit: "0.0 to 325.0 %".
QString RangeText(const ParameterDescription& parameter) {
    const QString minimum = MinimumText(parameter);
    if (minimum.isEmpty())
        return QStringLiteral("A number of 16 bits, such as 49, 31h or 0b110001");
    return QStringLiteral("%1 to %2 %3").arg(minimum, MaximumText(parameter), parameter.unit).trimmed();
}

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

CValueEditor::CValueEditor(std::function<const ParameterRow&(const QModelIndex&)> rowOf, QWidget* view)
    : QStyledItemDelegate(view), m_rowOf(std::move(rowOf)), m_view(view) {}

void CValueEditor::Leave() {
    if (m_editor)
        Close(*m_editor);
}

QWidget* CValueEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
    const ParameterRow& row = m_rowOf(index);
    m_index = index;
    m_former.clear();
    m_editor = row.description.isValueList() ? MakeChoice(parent, row) : MakeText(parent, row);
    m_editor->setAccessibleName(row.description.displayName());
    m_editor->setAutoFillBackground(true);
    if (m_note)
        m_editor->setAccessibleDescription(m_note->text());
    if (onOpened)
        onOpened();
    return m_editor;
}

QWidget* CValueEditor::MakeText(QWidget* parent, const ParameterRow& row) const {
    auto* edit = new QLineEdit(parent);
    edit->setAlignment(Qt::AlignRight);
    m_former = row.word ? CellText(row.description, *row.word) : QString();
    edit->setText(m_former);
    edit->selectAll();
    m_note = new QLabel(m_view);
    m_note->setObjectName(QStringLiteral("valueNote"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    m_note->setMargin(4);
    m_note->setFrameShape(QFrame::Box);
    m_note->setAutoFillBackground(true);
    m_note->setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(edit, &QObject::destroyed, m_note, &QObject::deleteLater);
    const QString range = RangeText(row.description);
    connect(edit, &QLineEdit::textEdited, m_note, [this, range] { ShowNote(range, false); });
    ShowNote(range, false);
    return edit;
}

QWidget* CValueEditor::MakeChoice(QWidget* parent, const ParameterRow& row) const {
    auto* box = new CChoiceBox(parent);
    for (const auto& [value, text] : row.description.values)
        if (text != kExcludedValue)
            box->addItem(text, int{value});
    if (row.word) // for one that is not offered
        box->setPlaceholderText(CellText(row.description, *row.word));
    box->setCurrentIndex(row.word ? box->findData(int{*row.word}) : -1);
    auto* self = const_cast<CValueEditor*>(this);
    box->onChosen = [self, box] { self->Commit(*box); };
    box->onLeft = [self, box] { self->Close(*box); };
    return box;
}

/// What the drive tells meanwhile does not take away what is typed: the editor was filled when it was made.
void CValueEditor::setEditorData(QWidget*, const QModelIndex&) const {}

void CValueEditor::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    if (const auto* box = qobject_cast<QComboBox*>(editor)) {
        model->setData(index, box->currentData());
        return;
    }
    const QString typed = static_cast<QLineEdit*>(editor)->text();
    QString error;
    if (typed.trimmed().isEmpty() || typed == m_former)
        return;
    if (const std::optional<quint16> word = WordOfTypedText(m_rowOf(index).description, typed, error))
        model->setData(index, int{*word});
}

/// A little air between the lines.
QSize CValueEditor::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 3);
}

/// As high and wide as it needs to be; the rows are lower than a drop-down.
void CValueEditor::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const {
    QRect place = option.rect;
    place.setSize(place.size().expandedTo(
        {qobject_cast<QComboBox*>(editor) ? editor->sizeHint().width() : 0, editor->sizeHint().height()}));
    place.moveTop(option.rect.center().y() - place.height() / 2);
    place.moveLeft(std::max(0, std::min(place.left(), editor->parentWidget()->width() - place.width())));
    editor->setGeometry(place);
    PlaceNote();
}

void CValueEditor::ShowNote(const QString& text, bool isError) const {
    if (!m_note)
        return;
    QFont font = m_view->font();
    font.setBold(isError);
    m_note->setFont(font);
    QPalette palette = m_view->palette();
    palette.setBrush(QPalette::Window, palette.toolTipBase());
    palette.setBrush(QPalette::WindowText, palette.toolTipText());
    m_note->setPalette(palette);
    m_note->setText(text);
    if (m_editor && m_editor->accessibleDescription() != text) {
        m_editor->setAccessibleDescription(text);
        QAccessibleEvent event(m_note, isError ? QAccessible::Alert : QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
    PlaceNote();
}

/// Below the editor, or above where there is no room; nowhere while that is scrolled out of sight.
void CValueEditor::PlaceNote() const {
    if (!m_note || !m_editor || m_editor->size().isEmpty())
        return;
    const QRect room = m_editor->parentWidget()->geometry();
    const QRect editor = m_editor->geometry().translated(room.topLeft());
    const QFontMetrics metrics = m_note->fontMetrics();
    const int frame = 2 * (m_note->margin() + m_note->frameWidth()) + metrics.averageCharWidth();
    const int widest = std::min(room.width(), metrics.averageCharWidth() * 50);
    const int width = std::min(widest, metrics.horizontalAdvance(m_note->text()) + frame);
    QRect place(editor.left(), editor.bottom() + 1, width, m_note->heightForWidth(width));
    if (place.bottom() > room.bottom())
        place.moveBottom(editor.top() - 1);
    if (place.right() > room.right())
        place.moveRight(room.right());
    m_note->setGeometry(place);
    m_note->setVisible(room.intersects(editor));
    m_note->raise();
}

bool CValueEditor::IsGood(const QString& typed) const {
    QString error;
    if (typed.trimmed().isEmpty() || typed == m_former || !m_index.isValid() ||
        WordOfTypedText(m_rowOf(m_index).description, typed, error))
        return true;
    ShowNote(error, true);
    return false;
}

bool CValueEditor::eventFilter(QObject* watched, QEvent* event) {
    auto* editor = qobject_cast<QWidget*>(watched);
    if (!editor || editor != m_editor)
        return QStyledItemDelegate::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut) {
        LoseFocus(*editor);
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() == Qt::Key_Escape) {
        Close(*editor);
        return true;
    }
    const auto* edit = qobject_cast<QLineEdit*>(editor);
    if (!edit)
        return false;
    if (!IsEnter(key) && key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab)
        return QStyledItemDelegate::eventFilter(watched, event);
    if (IsGood(edit->text()))
        Commit(*editor);
    return true;
}

void CValueEditor::Commit(QWidget& editor) {
    Q_EMIT commitData(&editor);
    Close(editor);
}

void CValueEditor::Close(QWidget& editor) {
    m_editor.clear();
    delete m_note.data();
    Q_EMIT closeEditor(&editor, QAbstractItemDelegate::NoHint);
}

/// Nothing is written because somebody clicked elsewhere; but what was typed does not vanish without a word. A menu of
/// the editor, or another window in front, takes nothing away.
void CValueEditor::LoseFocus(QWidget& editor) {
    if (!editor.isActiveWindow() || QApplication::activePopupWidget())
        return;
    const auto* edit = qobject_cast<QLineEdit*>(&editor);
    const QString typed = edit ? edit->text() : m_former;
    const bool isLeft = typed != m_former && m_index.isValid() && onLeft;
    const QModelIndex index = m_index;
    Close(editor);
    if (isLeft)
        onLeft(m_rowOf(index), typed);
}

} // namespace krt550
