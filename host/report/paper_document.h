#pragma once

#include "host/report/findings.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextObjectInterface>

#include <memory>

class QPagedPaintDevice;
class QTextTable;

namespace krt550 {

/// A chart as a character of a text document.
class CChartObject : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    static constexpr int kType = QTextFormat::UserObject + 1;
    static constexpr int kRun = QTextFormat::UserProperty + 1; ///< number of the run

    CChartObject(const Findings& findings, double scale) : m_findings(findings), m_scale(scale) {}

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    const Findings& m_findings;
    double m_scale; ///< dots of a point
};

/// The report laid out on pages: heads of tables come again, no heading stands alone at a page's end, and no row and
/// no short table is torn.
class CPaperDocument {
public:
    /// All borrowed; `page` is the size of a page's body in the device's dots.
    CPaperDocument(const Findings& findings, QPagedPaintDevice& device, const QSizeF& page);

    int PageCount() const { return m_document->pageCount(); }
    void DrawPage(QPainter& painter, int page);

private:
    void PlaceCharts(std::size_t runs);
    void LayOut();
    bool KeepOneTogether();
    bool KeepHeading(const QTextBlock& heading);
    bool KeepTable(QTextTable& table);
    bool KeepRows(QTextTable& table);
    bool KeepRow(QTextTable& table, int row);
    int PageOf(const QTextBlock& block) const;

    QPagedPaintDevice& m_device;
    QSizeF m_page;
    double m_dotsAPixel;
    CChartObject m_charts;
    std::unique_ptr<QTextDocument> m_document = std::make_unique<QTextDocument>();
};

} // namespace krt550
