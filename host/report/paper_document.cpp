#include "host/report/paper_document.h"

#include "host/report/chart.h"
#include "host/report/html.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>

namespace krt550 {
namespace {

constexpr double kPointsAnInch = 72;

QString Placeholder(std::size_t run) {
    return QStringLiteral("[[chart %1]]").arg(run);
}

bool HoldsChart(const QTextBlock& block) {
    return block.text().contains(QChar::ObjectReplacementCharacter);
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
    : m_page(page), m_charts(findings, device.logicalDpiX() / kPointsAnInch) {
    m_document.documentLayout()->setPaintDevice(&device);
    m_document.documentLayout()->registerHandler(CChartObject::kType, &m_charts);
    m_document.setDocumentMargin(0);
    m_document.setHtml(ReportHtml(findings, HtmlFor::Paper, Placeholder));
    PlaceCharts();
    m_document.setPageSize(page);
    while (KeepOneHeading()) {
    }
}

void CPaperDocument::PlaceCharts() {
    for (int run = 0;; ++run) {
        QTextCursor cursor = m_document.find(Placeholder(std::size_t(run)));
        if (cursor.isNull()) {
            if (run > 0 || m_document.find(QStringLiteral("[[chart ")).isNull())
                return;
            continue;
        }
        QTextCharFormat format;
        format.setObjectType(CChartObject::kType);
        format.setProperty(CChartObject::kRun, run);
        cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
    }
}

int CPaperDocument::PageOf(const QTextBlock& block) const {
    // A chart that has moved to the next page leaves the top of its paragraph behind.
    const double line = block.layout()->lineCount() > 0 ? block.layout()->lineAt(0).y() : 0;
    return int((m_document.documentLayout()->blockBoundingRect(block).top() + line) / m_page.height());
}

/// Moves the first heading that does not stand on the page of what follows it to the next page; false when there is
/// none. A run's heading goes with its chart.
bool CPaperDocument::KeepOneHeading() {
    QTextBlock first; // of headings in a row
    for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
        const bool isHeading = block.blockFormat().headingLevel() > 0;
        if (isHeading && !first.isValid())
            first = block;
        if (isHeading || !first.isValid())
            continue;
        QTextBlock follower = block;
        for (QTextBlock next = block; next.isValid() && next.blockFormat().headingLevel() == 0; next = next.next())
            if (HoldsChart(next)) {
                follower = next;
                break;
            }
        const bool isMoved = first.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore;
        if (PageOf(follower) != PageOf(first) && !isMoved) {
            QTextBlockFormat format = first.blockFormat();
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            QTextCursor(first).setBlockFormat(format);
            return true;
        }
        first = {};
    }
    return false;
}

void CPaperDocument::DrawPage(QPainter& painter, int page) {
    const QRectF part(0, page * m_page.height(), m_page.width(), m_page.height());
    painter.save();
    painter.translate(0, -part.top());
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = part;
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.setClipRect(part);
    m_document.documentLayout()->draw(&painter, context);
    painter.restore();
}

} // namespace krt550
