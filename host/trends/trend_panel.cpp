#include "host/trends/trend_panel.h"

#include "host/trends/signal_list.h"
#include "host/trends/trend_chart.h"
#include "host/trends/trend_export.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QScrollArea>
#include <QSettings>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace krt550 {
namespace {

/// Speed reference, speed, armature current, field current.
const std::vector<quint16> kDefaultSignals = {218, 104, 116, 130};
const QString kSignalsKey = QStringLiteral("trends/signals");
const QString kWindowKey = QStringLiteral("trends/window");

struct WindowDef {
    int seconds;
    const char* name;
};

constexpr WindowDef kWindows[] = {{60, "60 s"},    {120, "2 min"},   {300, "5 min"},
                                  {600, "10 min"}, {1800, "30 min"}, {3600, "1 h"}};

} // namespace

CTrendPanel::CTrendPanel(QWidget* parent)
    : CTrendDoor(parent), m_chosen(kDefaultSignals), m_directory(QDir::homePath()), m_chart(new CTrendChart(m_history)),
      m_list(new CSignalList), m_parts(new QSplitter), m_text(new QLabel) {
    auto* bar = new QToolBar;
    MakeToolBar(*bar);
    auto* scroll = new QScrollArea;
    scroll->setWidget(m_chart);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_parts->addWidget(scroll);
    m_parts->addWidget(m_list);
    m_parts->setStretchFactor(0, 1);
    m_parts->setChildrenCollapsible(false);
    m_list->hide();
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setAccessibleName(QStringLiteral("State of the trends"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 4);
    layout->setSpacing(2);
    layout->addWidget(bar);
    layout->addWidget(m_parts, 1);
    layout->addWidget(m_text);
    m_list->onTick = [this](quint16 reg, bool isChosen) { return Tick(reg, isChosen); };
    m_chart->onFollowing = [this] {
        m_pause->setChecked(!m_chart->IsFollowing());
        ShowTexts();
    };
    m_sampler.onFailure = [this](const QString& failure) {
        m_failure = failure;
        ShowTexts();
    };
    ShowTexts();
}

CTrendPanel::~CTrendPanel() {
    // It draws from members, which go before a child would.
    delete m_chart;
}

/// The list of signals stands where there is more room.
void CTrendPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_parts->setOrientation(width() < height() ? Qt::Vertical : Qt::Horizontal);
}

QAction* CTrendPanel::AddAction(QToolBar& bar, const char* text, const char* toolTip) {
    QAction* action = bar.addAction(QString::fromLatin1(text));
    action->setToolTip(QString::fromLatin1(toolTip));
    bar.widgetForAction(action)->setFocusPolicy(Qt::StrongFocus);
    return action;
}

void CTrendPanel::MakeToolBar(QToolBar& bar) {
    bar.setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar.setAccessibleName(QStringLiteral("Trends"));
    m_window = new QComboBox;
    m_window->setAccessibleName(QStringLiteral("Time shown"));
    m_window->setToolTip(QStringLiteral("Time that the chart shows while it follows"));
    for (const WindowDef& window : kWindows)
        m_window->addItem(QString::fromLatin1(window.name), window.seconds);
    connect(m_window, &QComboBox::currentIndexChanged, this,
            [this] { m_chart->SetWindow(m_window->currentData().toInt()); });
    bar.addWidget(m_window);
    QAction* choose = AddAction(bar, "Signals", "Choose the signals");
    choose->setCheckable(true);
    connect(choose, &QAction::toggled, this, [this](bool isOpen) {
        if (isOpen)
            m_list->Show(m_parameters, m_chosen);
        m_list->setVisible(isOpen);
    });
    m_pause = AddAction(bar, "Pause", "The picture stands, sampling goes on (Space in the chart)");
    m_pause->setCheckable(true);
    connect(m_pause, &QAction::triggered, this,
            [this](bool isChecked) { isChecked ? m_chart->Pause() : m_chart->Follow(); });
    connect(
        AddAction(bar, "Follow", "Show the newest samples again, as long and as high as they are (End in the chart)"),
        &QAction::triggered, this, [this] { m_chart->Follow(); });
    connect(AddAction(bar, "Clear", "Forget all samples"), &QAction::triggered, this, [this] {
        m_history.Clear();
        m_chart->Follow();
    });
    connect(AddAction(bar, "Save table...", "Write the samples that are shown to a file (CSV)"), &QAction::triggered,
            this,
            [this] { AskForFile(QStringLiteral("Save table"), QStringLiteral("csv"), &CTrendPanel::ExportTable); });
    connect(AddAction(bar, "Save picture...", "Write the picture to a file (PNG)"), &QAction::triggered, this,
            [this] { AskForFile(QStringLiteral("Save picture"), QStringLiteral("png"), &CTrendPanel::ExportPicture); });
}

void CTrendPanel::SetDrive(CParameterLink* link, std::vector<ParameterDescription> parameters) {
    m_sampler.SetLink(nullptr);
    m_isConnected = link != nullptr;
    if (link) {
        m_history.AddGap(CClock::Current().Now());
        m_history.FollowWall();
        m_parameters = std::move(parameters);
        std::erase_if(m_parameters, [](const auto& parameter) { return !IsTrendSignal(parameter); });
        m_list->Show(m_parameters, m_chosen);
        Choose();
        m_sampler.SetLink(link);
    }
    Tell({});
}

bool CTrendPanel::Tick(quint16 reg, bool isChosen) {
    if (isChosen && m_history.Signals().size() == kMostTrendSignals) {
        Tell(QStringLiteral("%1 signals are shown at most: take one away first.").arg(kMostTrendSignals));
        return false;
    }
    std::erase(m_chosen, reg);
    if (isChosen)
        m_chosen.push_back(reg);
    Choose();
    Tell({});
    return true;
}

/// Takes the chosen signals that this drive has.
void CTrendPanel::Choose() {
    std::vector<ParameterDescription> chosen;
    for (const quint16 reg : m_chosen) {
        const auto found = std::ranges::find(m_parameters, reg, &ParameterDescription::reg);
        if (found != m_parameters.end())
            chosen.push_back(*found);
    }
    m_history.Choose(chosen);
    m_chart->Rebuild();
    m_sampler.Restart();
}

void CTrendPanel::SaveState(QSettings& settings) const {
    QStringList registers;
    for (const quint16 reg : m_chosen)
        registers.append(QString::number(reg));
    settings.setValue(kSignalsKey, registers);
    settings.setValue(kWindowKey, m_window->currentData());
}

void CTrendPanel::RestoreState(QSettings& settings) {
    if (settings.contains(kSignalsKey)) {
        m_chosen.clear();
        for (const QString& text : settings.value(kSignalsKey).toStringList())
            if (const quint16 reg = text.toUShort(); reg != 0 && std::ranges::count(m_chosen, reg) == 0)
                m_chosen.push_back(reg);
        m_list->Show(m_parameters, m_chosen);
        Choose();
    }
    const int window = m_window->findData(settings.value(kWindowKey).toInt());
    m_window->setCurrentIndex(window < 0 ? m_window->currentIndex() : window);
    ShowTexts();
}

/// The dialog lets everything else go on, a Stop above all.
void CTrendPanel::AskForFile(const QString& title, const QString& ending, void (CTrendPanel::*write)(const QString&)) {
    auto* dialog = new QFileDialog(this, title, m_directory);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilter(QStringLiteral("*.%1").arg(ending));
    dialog->setDefaultSuffix(ending);
    const QString time =
        QCPAxisTickerDateTime::keyToDateTime(m_chart->ShownTimes().upper).toString(QStringLiteral("yyyyMMdd-HHmmss"));
    dialog->selectFile(QStringLiteral("trend-%1.%2").arg(time, ending));
    connect(dialog, &QFileDialog::fileSelected, this, [this, write](const QString& path) { (this->*write)(path); });
    dialog->setModal(false);
    dialog->show();
}

void CTrendPanel::ExportTable(const QString& path) {
    const QCPRange times = m_chart->ShownTimes();
    TellSaved(path, WriteTrendTable(m_history, times.lower, times.upper, path));
}

void CTrendPanel::ExportPicture(const QString& path) {
    TellSaved(path, WriteTrendPicture(m_chart->Picture(), path));
}

void CTrendPanel::TellSaved(const QString& path, const QString& error) {
    m_directory = QFileInfo(path).absolutePath();
    Tell(error.isEmpty() ? QStringLiteral("Saved: %1").arg(path) : error);
}

void CTrendPanel::Tell(const QString& note) {
    m_note = note;
    ShowTexts();
}

void CTrendPanel::ShowTexts() {
    QStringList lines;
    if (m_parameters.empty() && !m_isConnected)
        lines.append(QStringLiteral("No drive is connected."));
    else if (m_history.Signals().empty())
        lines.append(QStringLiteral("No signal is chosen."));
    if (!m_failure.isEmpty())
        lines.append(m_failure);
    if (!m_note.isEmpty())
        lines.append(m_note);
    if (m_pause->isChecked())
        lines.append(QStringLiteral("The picture stands. Follow shows what is sampled now."));
    m_text->setText(lines.join(QLatin1Char('\n')));
    m_text->setVisible(!lines.isEmpty());
}

} // namespace krt550
