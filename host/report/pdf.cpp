#include "host/report/pdf.h"

#include "host/report/html.h"
#include "host/report/paper_document.h"

#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>

namespace krt550 {
namespace {

constexpr double kMarginMm = 17;
constexpr double kFooterMm = 9;
constexpr int kResolution = 600; ///< of places, not of pictures: there are none

class CPages {
public:
    CPages(QPdfWriter& writer, const Findings& findings)
        : m_writer(writer), m_findings(findings),
          m_body(QSize(writer.width(), writer.height() - int(kFooterMm / 25.4 * kResolution))) {}

    bool Draw();

private:
    void DrawFooter(QPainter& painter, int page, int pages);

    QPdfWriter& m_writer;
    const Findings& m_findings;
    QSizeF m_body; ///< of a page, in dots
};

bool CPages::Draw() {
    CPaperDocument document(m_findings, m_writer, m_body);
    QPainter painter;
    if (!painter.begin(&m_writer))
        return false;
    const int pages = document.PageCount();
    for (int page = 0; page < pages; ++page) {
        if (page > 0 && !m_writer.newPage())
            return false;
        document.DrawPage(painter, page);
        DrawFooter(painter, page, pages);
    }
    return painter.end();
}

void CPages::DrawFooter(QPainter& painter, int page, int pages) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(7.5);
    painter.setFont(font);
    painter.setPen(QColor(0x55, 0x55, 0x55));
    const QRectF place(0, m_body.height(), m_body.width(), m_writer.height() - m_body.height());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignBottom,
                     QStringLiteral("Commissioning report, %1, %2").arg(m_findings.drive, m_findings.date));
    painter.drawText(place, Qt::AlignRight | Qt::AlignBottom, QStringLiteral("Page %1 of %2").arg(page + 1).arg(pages));
}

} // namespace

bool WritePdf(const Findings& findings, QIODevice& output) {
    QPdfWriter writer(&output);
    writer.setResolution(kResolution);
    writer.setTitle(QStringLiteral("Commissioning report: %1").arg(findings.drive));
    writer.setCreator(QStringLiteral("krt550tool"));
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm - kFooterMm / 2),
                          QPageLayout::Millimeter);
    return CPages(writer, findings).Draw();
}

} // namespace krt550
