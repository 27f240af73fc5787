#pragma once

#include "host/trends/trend_door.h"
#include "host/trends/trend_history.h"
#include "host/trends/trend_sampler.h"

class QAction;
class QComboBox;
class QLabel;
class QSplitter;
class QToolBar;

namespace krt550 {

class CSignalList;
class CTrendChart;

/// Shows chosen signals of the drive over time, as they were sampled 20 times a second for the last hour at most.
/// Samples as long as there is a drive, seen or not; opens no box.
class CTrendPanel : public CTrendDoor {
public:
    explicit CTrendPanel(QWidget* parent = nullptr);
    ~CTrendPanel() override;

    void SetDrive(CParameterLink* link, std::vector<ParameterDescription> parameters) override;
    void SetShared(bool isShared) override { m_sampler.SetShared(isShared); }
    void SaveState(QSettings& settings) const override;
    void RestoreState(QSettings& settings) override;

    /// Write what is shown to a file, the next one beside it; whatever becomes of it is told in the panel.
    void ExportTable(const QString& path);
    void ExportPicture(const QString& path);

    const CTrendHistory& History() const { return m_history; }
    CTrendChart& Chart() { return *m_chart; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QAction* AddAction(QToolBar& bar, const char* text, const char* toolTip);
    void MakeToolBar(QToolBar& bar);
    bool Tick(quint16 reg, bool isChosen);
    void Choose();
    void AskForFile(const QString& title, const QString& ending, void (CTrendPanel::*write)(const QString&));
    void TellSaved(const QString& path, const QString& error);
    void Tell(const QString& note);
    void ShowTexts();

    CTrendHistory m_history;
    CTrendSampler m_sampler{m_history};
    std::vector<ParameterDescription> m_parameters; ///< that can be chosen
    std::vector<quint16> m_chosen;                  ///< may name some that this drive does not have
    bool m_isConnected = false;
    QString m_failure;
    QString m_note;
    QString m_directory; ///< of the last file
    CTrendChart* m_chart;
    CSignalList* m_list;
    QSplitter* m_parts;
    QLabel* m_text;
    QComboBox* m_window = nullptr;
    QAction* m_pause = nullptr;
};

} // namespace krt550
