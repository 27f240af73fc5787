#include "host/parameters/parameter_panel.h"

#include "host/parameters/parameter_view.h"
#include "host/parameters/value_editor.h"
#include "hostlib/tolvbo32/parameter_link.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

namespace krt550 {
namespace {

QLabel* MakeLine(QWidget* parent, const char* name) {
    auto* line = new QLabel(parent);
    line->setObjectName(QLatin1String(name));
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    line->hide();
    return line;
}

void ShowLine(QLabel& line, const QString& text) {
    line.setText(text);
    line.setVisible(!text.isEmpty());
}

} // namespace

CParameterPanel::CParameterPanel(QString textFile, QWidget* parent)
    : QWidget(parent), m_textFile(std::move(textFile)), m_refresh(m_model, [this] { return GetSeenRows(); }),
      m_view(new CParameterView(m_model, m_filter, this)),
      m_editor(new CValueEditor(
          [this](const QModelIndex& index) -> const ParameterRow& { return m_model.GetRow(m_filter.RowOf(index)); },
          m_view)),
      m_count(new QLabel(this)), m_state(MakeLine(this, "linkState")), m_message(MakeLine(this, "message")) {
    m_view->setItemDelegate(m_editor);
    m_view->onRefused = [this](int row) { Refused(row); };
    m_editor->onOpened = [this] { Tell({}); };
    m_editor->onLeft = [this](const ParameterRow& row, const QString& typed) {
        Tell(QStringLiteral("%1: \"%2\" was not written. Enter writes what is typed.")
                 .arg(row.description.displayName(), typed));
    };
    m_model.onWrite = [this](int row, quint16 word) { return Write(row, word); };
    m_refresh.onSilence = [this](const QString& reason) {
        m_silence = reason;
        ShowState();
    };
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeFilters());
    layout->addWidget(m_view, 1);
    layout->addWidget(m_state);
    layout->addWidget(m_message);
    MakeColumns();
    BindKeys();
    connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { m_refresh.Look(); });
    for (const auto signal : {&QTreeView::expanded, &QTreeView::collapsed})
        connect(m_view, signal, this, [this] { m_refresh.Look(); });
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&m_filter, signal, this, [this] { ShowCount(); });
    ShowState();
    ShowCount();
}

CParameterPanel::~CParameterPanel() {
    m_view->setModel(nullptr); // the filter goes before the view
}

void CParameterPanel::SetDrive(CParameterLink* link, std::vector<ParameterDescription> parameters) {
    m_editor->Leave();
    m_refresh.SetLink(nullptr);
    m_link = link;
    m_silence.clear();
    if (!parameters.empty())
        m_textError = m_texts.Read(m_textFile);
    m_model.SetParameters(std::move(parameters), m_texts);
    m_refresh.SetLink(link);
    Tell(m_textError.isEmpty() ? QString() : QStringLiteral("Without tool tips: %1").arg(m_textError));
    ShowState();
    ShowCount();
}

void CParameterPanel::SetShared(bool isShared) {
    if (isShared == m_isShared)
        return;
    m_editor->Leave();
    m_isShared = isShared;
    Tell({});
    m_refresh.SetResting(isShared);
    ShowState();
}

std::optional<std::vector<int>> CParameterPanel::GetSeenRows() const {
    return isVisible() ? std::optional(m_view->GetSeenRows()) : std::nullopt;
}

void CParameterPanel::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_refresh.Look();
}

void CParameterPanel::ApplyConditions() {
    m_editor->Leave();
    m_filter.SetConditions({.search = m_search->text(),
                            .changedFromDefault = m_fromDefault->isChecked(),
                            .changedSinceConnect = m_sinceConnect->isChecked(),
                            .readOnlyHidden = m_readOnlyHidden->isChecked()});
    m_view->ShowGroups();
    ShowCount();
    m_refresh.Look();
}

void CParameterPanel::ShowCount() {
    m_count->setText(QStringLiteral("%1 of %2").arg(m_filter.CountShown()).arg(m_model.GetRowCount()));
}

void CParameterPanel::ShowState() {
    m_model.isEditable = m_link && !m_isShared;
    if (!m_link)
        ShowLine(*m_state, QStringLiteral("No drive is connected."));
    else if (m_isShared)
        ShowLine(*m_state, QStringLiteral("The wizard works on the parameters: nothing is read or written here."));
    else if (!m_silence.isEmpty())
        ShowLine(*m_state, QStringLiteral("The drive does not answer; values in grey may be old. %1").arg(m_silence));
    else
        ShowLine(*m_state, {});
}

void CParameterPanel::Tell(const QString& text) {
    ShowLine(*m_message, text);
}

void CParameterPanel::Refused(int row) {
    if (const QString why = m_model.WhyNotEdited(row); !why.isEmpty())
        Tell(QStringLiteral("%1 cannot be edited: %2.").arg(m_model.GetRow(row).description.displayName(), why));
}

/// One write; what the drive then holds is read in the next turn.
bool CParameterPanel::Write(int row, quint16 word) {
    const ParameterDescription& parameter = m_model.GetRow(row).description;
    const bool isWritten = m_link->WriteWord(parameter.reg, word);
    if (isWritten)
        m_model.TakeWord(row, word);
    else
        Tell(QStringLiteral("%1 was not written: %2").arg(parameter.displayName(), m_link->LastErrorText()));
    m_refresh.ReadBack(row, [this, row, word, isWritten](bool isRead) {
        if (isRead)
            WasReadBack(row, word, isWritten);
    });
    return isWritten;
}

/// A drive may make something else of a value; and of a write whose answer was lost nobody knows before.
void CParameterPanel::WasReadBack(int row, quint16 wanted, bool isWritten) {
    const ParameterRow& read = m_model.GetRow(row);
    const QString name = read.description.displayName();
    if (isWritten && read.word != wanted)
        Tell(QStringLiteral("%1: the drive has made %2 of it.").arg(name, CellText(read.description, *read.word)));
    if (!isWritten && read.word == wanted)
        Tell(m_message->text() + QStringLiteral(" The drive has it all the same."));
}

} // namespace krt550
