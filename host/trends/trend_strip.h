#pragma once

#include <QString>

#include <optional>
#include <vector>

class QCPAxis;
class QCPAxisRect;
class QCPGraph;
class QCPItemLine;
class QCPItemText;
class QCPLegend;
class QCPMarginGroup;
class QCPRange;
class QCustomPlot;
class QPalette;

namespace krt550 {

struct TrendSignal;

/// One strip of the chart: the curves that share an axis of values, below a line that names them with what they are
/// now. Signals share one when they have the same unit and resolution: a field current of 0.4 A is nothing to be seen
/// on the axis of an armature current.
class CTrendStrip {
public:
    /// Puts itself below what is in the plot; `signal` is its first. The plot owns what it is made of.
    CTrendStrip(QCustomPlot& plot, QCPMarginGroup& margins, const TrendSignal& signal);

    /// Whether a signal belongs here.
    bool Takes(const TrendSignal& signal) const;
    /// The signal's curve is shared; it must not be chosen anew while the strip is there.
    void Add(const TrendSignal& signal);
    /// The last strip alone says what time it is.
    void ShowTimes(bool isShown);

    QCPAxisRect& Place() const { return *m_place; }
    QCPAxis& Times() const;
    QCPAxis& Values() const;

    /// Names the curves, with unit and present value, in as many columns as fit. With a cursor also the values there,
    /// which it returns for reading aloud; the first strip says what time it is at.
    QString ShowValues(std::optional<double> cursor, bool isFirst);
    /// No more marks on the axis than have room. True when that has changed something.
    bool FitMarks();
    /// Fits the axis to what is to be seen. It stays as it is while that fits and fills it well enough.
    void FitValues(const QCPRange& times);
    /// A person has chosen the range of values: it stays until told otherwise.
    void SetFits(bool fits) { m_fits = fits; }

private:
    struct Curve {
        const TrendSignal* signal;
        QCPGraph* graph;
    };

    void SetColors(const QPalette& palette);
    void MakeCursor();
    void PlaceCursor(std::optional<double> time, bool isFirst);
    void SetColumns(int widest);

    QCustomPlot& m_plot;
    QCPLegend* m_legend;
    QCPAxisRect* m_place;
    QCPItemLine* m_line;
    QCPItemText* m_time;
    std::vector<Curve> m_curves;
    bool m_fits = true;
};

} // namespace krt550
