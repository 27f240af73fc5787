#include "host/report/paper_document.h"

#include "host/report/chart.h"
#include "host/report/html.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextTable>

#include <cmath>
#include <limits>

namespace krt550 {
namespace {

constexpr double kPointsAnInch = 72;
constexpr double kPixelsAnInch = 96; ///< of the lengths in a document
constexpr int kMoved = QTextFormat::UserProperty + 2;

QString Placeholder(std::size_t run) {
    return QStringLiteral("[[chart %1]]").arg(run);
}

bool HoldsChart(const QTextBlock& block) {
    return block.text().contains(QChar::ObjectReplacementCharacter);
}

bool IsHeading(const QTextBlock& block) {
    return block.isValid() && block.blockFormat().headingLevel() > 0;
}

/// For formats of paragraphs and of frames.
template <class Format> bool MovesToNextPage(const Format& format) {
    return format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore;
}

void MoveToNextPage(const QTextBlock& block) {
    QTextBlockFormat format = block.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(block).setBlockFormat(format);
}

} // namespace

QSizeF CChartObject::intrinsicSize(QTextDocument*, int, const QTextFormat&) {
    return QSizeF(kChartWidth, kChartHeight) * m_scale;
}

void CChartObject::drawObject(QPainter* painter, const QRectF& place, QTextDocument*, int, const QTextFormat& format) {
    painter->save();
    painter->translate(place.topLeft());
    painter->scale(m_scale, m_scale);
    DrawChart(*painter, m_findings.runs[std::size_t(format.intProperty(kRun))]);
    painter->restore();
}

CPaperDocument::CPaperDocument(const Findings& findings, QPagedPaintDevice& device, const QSizeF& page)
    : m_device(device), m_page(page), m_dotsAPixel(device.logicalDpiY() / kPixelsAnInch),
      m_charts(findings, device.logicalDpiX() / kPointsAnInch) {
    m_document->setDocumentMargin(0);
    m_document->setHtml(ReportHtml(findings, HtmlFor::Paper, Placeholder));
    PlaceCharts(findings.runs.size());
    LayOut();
    while (KeepOneTogether())
        LayOut();
}

/// A copy, from the beginning: what Qt does about single changes loses paragraphs and room between tables.
void CPaperDocument::LayOut() {
    m_document.reset(m_document->clone());
    m_document->documentLayout()->setPaintDevice(&m_device);
    m_document->documentLayout()->registerHandler(CChartObject::kType, &m_charts);
    m_document->setPageSize(m_page);
}

/// A run without a trace has no place for a chart.
void CPaperDocument::PlaceCharts(std::size_t runs) {
    for (std::size_t run = 0; run < runs; ++run) {
        QTextCursor cursor = m_document->find(Placeholder(run));
        if (cursor.isNull())
            continue;
        QTextCharFormat format;
        format.setObjectType(CChartObject::kType);
        format.setProperty(CChartObject::kRun, int(run));
        cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
    }
}

int CPaperDocument::PageOf(const QTextBlock& block) const {
    // A chart that has moved to the next page leaves the top of its paragraph behind.
    const double line = block.layout()->lineCount() > 0 ? block.layout()->lineAt(0).y() : 0;
    return int((m_document->documentLayout()->blockBoundingRect(block).top() + line) / m_page.height());
}

/// Moves the first thing that a page's end would tear, or part from what belongs to it, to the next page; false when
/// there is none. One after the other, because what comes later moves with it.
bool CPaperDocument::KeepOneTogether() {
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        QTextTable* table = QTextCursor(block).currentTable();
        if (IsHeading(block) && !IsHeading(block.previous()) && KeepHeading(block))
            return true;
        if (table && table->firstCursorPosition().block() == block && (KeepTable(*table) || KeepRows(*table)))
            return true;
    }
    return false;
}

/// A heading, or several in a row, stands on the page of what follows; a run's heading on the page of its chart.
bool CPaperDocument::KeepHeading(const QTextBlock& heading) {
    QTextBlock follower = heading;
    while (IsHeading(follower))
        follower = follower.next();
    for (QTextBlock next = follower; next.isValid() && !IsHeading(next); next = next.next())
        if (HoldsChart(next)) {
            follower = next;
            break;
        }
    if (!follower.isValid() || PageOf(follower) == PageOf(heading) || MovesToNextPage(heading.blockFormat()))
        return false;
    MoveToNextPage(heading);
    return true;
}

/// A short table stays whole, with the heading right before it.
bool CPaperDocument::KeepTable(QTextTable& table) {
    constexpr double kShort = 0.25; // of a page
    const QRectF place = m_document->documentLayout()->frameBoundingRect(&table);
    const bool isTorn = std::floor(place.top() / m_page.height()) != std::floor((place.bottom() - 1) / m_page.height());
    QTextFrameFormat format = table.frameFormat();
    const QTextBlock before = table.firstCursorPosition().block().previous();
    if (!isTorn || place.height() > kShort * m_page.height() || MovesToNextPage(format) ||
        MovesToNextPage(before.blockFormat()))
        return false;
    if (IsHeading(before)) {
        MoveToNextPage(before);
    } else {
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        table.setFrameFormat(format);
    }
    return true;
}

bool CPaperDocument::KeepRows(QTextTable& table) {
    for (int row = 0; row < table.rows(); ++row)
        if (KeepRow(table, row))
            return true;
    return false;
}

/// Room above its text moves a row.
bool CPaperDocument::KeepRow(QTextTable& table, int row) {
    const QAbstractTextDocumentLayout& layout = *m_document->documentLayout();
    double top = std::numeric_limits<double>::max();
    double bottom = 0;
    double line = 0; ///< height of the first one
    for (int column = 0; column < table.columns(); ++column) {
        const QTextTableCell cell = table.cellAt(row, column);
        const QTextBlock first = cell.firstCursorPosition().block();
        top = std::min(top, layout.blockBoundingRect(first).top());
        line = std::max(line, first.layout()->lineCount() > 0 ? first.layout()->lineAt(0).height() : 0);
        bottom = std::max(bottom, layout.blockBoundingRect(cell.lastCursorPosition().block()).bottom());
    }
    const double pageEnd = (std::floor(top / m_page.height()) + 1) * m_page.height();
    const bool isTorn = bottom > pageEnd && bottom - top < m_page.height();
    QTextTableCellFormat format = table.cellAt(row, 0).format().toTableCellFormat();
    if (!isTorn || format.hasProperty(kMoved))
        return false;
    for (int column = 0; column < table.columns(); ++column) {
        QTextTableCell cell = table.cellAt(row, column);
        format = cell.format().toTableCellFormat();
        format.setProperty(kMoved, true);
        // So much that the first line has no room any more: it moves by itself then, below the table's head.
        format.setTopPadding(format.topPadding() + (pageEnd - top - line / 2) / m_dotsAPixel);
        cell.setFormat(format);
    }
    return true;
}

void CPaperDocument::DrawPage(QPainter& painter, int page) {
    const QRectF part(0, page * m_page.height(), m_page.width(), m_page.height());
    painter.save();
    painter.translate(0, -part.top());
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = part;
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.setClipRect(part);
    m_document->documentLayout()->draw(&painter, context);
    painter.restore();
}

} // namespace krt550
