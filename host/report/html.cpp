#include "host/report/html.h"

#include "host/report/html_style.h"

namespace krt550 {
namespace {

QString Escaped(const QString& text) {
    return text.trimmed().toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
}

QString Element(const char* name, const QString& inside) {
    return QStringLiteral("<%1>%2</%1>\n").arg(QLatin1String(name), inside);
}

QString Cell(const QString& text, const char* kind = nullptr, int widthPercent = 0) {
    const QString width = widthPercent > 0 ? QStringLiteral(" width=\"%1%\"").arg(widthPercent) : QString();
    const QString style = kind ? QStringLiteral(" class=\"%1\"").arg(QLatin1String(kind)) : QString();
    return QLatin1String("<td") + width + style + QLatin1Char('>') + text + QLatin1String("</td>");
}

struct Column {
    const char* title;
    const char* kind = nullptr; ///< class of the cells
    int widthPercent = 0;
};

/// A table with a head, which comes again on the next page.
class CTable {
public:
    explicit CTable(std::initializer_list<Column> columns) : m_columns(columns) {
        QString head;
        for (const Column& column : m_columns)
            head += QStringLiteral("<th width=\"%1%\"%2>%3</th>")
                        .arg(column.widthPercent)
                        .arg(QLatin1String(qstrcmp(column.kind, "number") == 0 ? " class=\"number\"" : ""),
                             QLatin1String(column.title));
        m_html = QLatin1String("<table width=\"100%\" cellspacing=\"0\"><thead><tr>") + head +
                 QLatin1String("</tr></thead>\n<tbody>\n");
    }
    /// Cells are HTML.
    void AddRow(const QStringList& cells) {
        m_html += QLatin1String("<tr>");
        for (qsizetype i = 0; i < cells.size(); ++i)
            m_html += Cell(cells[i], m_columns[std::size_t(i)].kind);
        m_html += QLatin1String("</tr>\n");
    }
    QString Html() const { return m_html + QLatin1String("</tbody></table>\n"); }

private:
    std::vector<Column> m_columns;
    QString m_html;
};

QString Marked(Mark mark, const QString& text) {
    constexpr const char* kClasses[] = {"good", "open", "bad"};
    return QStringLiteral("<span class=\"%1\">%2</span>")
        .arg(QLatin1String(kClasses[static_cast<int>(mark)]), Escaped(text));
}

QString FactTable(const QList<Fact>& facts) {
    QString rows;
    for (const auto& [label, value] : facts)
        rows += QLatin1String("<tr>") + Cell(Escaped(label), "label", 38) + Cell(Escaped(value), nullptr, 62) +
                QLatin1String("</tr>\n");
    return QLatin1String("<table width=\"100%\" cellspacing=\"0\">\n") + rows + QLatin1String("</table>\n");
}

QString ValueTable(const char* what, const std::vector<ValueLine>& lines, const char* from, const char* to) {
    CTable table(
        {{"No.", "register", 9}, {what, nullptr, 43}, {from, "number", 19}, {to, "number", 19}, {"Unit", "unit", 10}});
    for (const ValueLine& line : lines)
        table.AddRow({line.number, Escaped(line.name), Escaped(line.from), Escaped(line.to), Escaped(line.unit)});
    return table.Html();
}

QString BoxTable(const std::vector<BoxLine>& boxes) {
    CTable table({{"Time", "time", 13}, {"Message", nullptr, 70}, {"Answer", nullptr, 17}});
    for (const BoxLine& box : boxes)
        table.AddRow({box.time, Escaped(box.text.simplified()), Escaped(box.answer)});
    return table.Html();
}

QString OrNone(bool isEmpty, const QString& html, const char* none) {
    return isEmpty ? Element("p", QLatin1String(none)) : html;
}

QString Summary(const Findings& findings) {
    int done = 0;
    for (const StepLine& step : findings.steps)
        done += step.mark == Mark::Good ? 1 : 0;
    QList<Fact> facts{{QStringLiteral("Drive"), findings.drive}};
    facts += findings.sessions;
    facts.append({QStringLiteral("Basic commissioning"),
                  QStringLiteral("%1 of %2 steps done").arg(done).arg(findings.steps.size())});
    facts.append({QStringLiteral("Runs of the motor"), QString::number(findings.runs.size())});
    facts.append({QStringLiteral("Faults"), QString::number(findings.faults.size())});
    facts.append({QStringLiteral("Open points"), QString::number(findings.openPoints.size())});
    return FactTable(facts);
}

QString Steps(const Findings& findings) {
    CTable table({{"Step", nullptr, 45}, {"Result", nullptr, 55}});
    for (const StepLine& step : findings.steps)
        table.AddRow({Escaped(step.title), Marked(step.mark, step.status)});
    return table.Html();
}

QString Run(const RunFinding& run, std::size_t number, const QString& chart) {
    QString html = Element("h3", QStringLiteral("Run %1: %2").arg(number + 1).arg(Escaped(run.title)));
    QStringList facts;
    for (const auto& [label, value] : run.facts)
        facts += QStringLiteral("%1: %2").arg(label, value);
    html +=
        Element("p", Marked(run.mark, run.outcome) + QLatin1String("<br>") + Escaped(facts.join(QLatin1String(", "))));
    if (run.trace.size() >= 2)
        html += QLatin1String("<p>") + chart + QLatin1String("</p>\n");
    else
        html += Element("p", QStringLiteral("There is no trace of this run."));
    if (!run.identified.empty())
        html += ValueTable("Found and set by the drive", run.identified, "Before", "After") +
                QLatin1String("<p class=\"gap\"></p>\n");
    return html;
}

QString Faults(const Findings& findings) {
    CTable table({{"Time", "time", 13}, {"Code", "number", 10}, {"The drive's record", nullptr, 77}});
    for (const FaultFinding& fault : findings.faults)
        table.AddRow(
            {fault.time, fault.code,
             Escaped(fault.lines.isEmpty() ? QStringLiteral("not read") : fault.lines.join(QLatin1Char('\n')))});
    return OrNone(findings.faults.empty(), table.Html(), "None.");
}

QString OpenPoints(const Findings& findings) {
    QString items;
    for (const QString& point : findings.openPoints)
        items += Element("li", Escaped(point));
    return OrNone(items.isEmpty(), Element("ul", items), "None.") + Element("p", QStringLiteral("Remarks:")) +
           QLatin1String("<p><br><br><br></p>");
}

QString Signatures() {
    QString rows = QStringLiteral("<tr><th class=\"sign\" width=\"22%\"></th><th class=\"sign\" width=\"28%\">Name</th>"
                                  "<th class=\"sign\" width=\"18%\">Date</th>"
                                  "<th class=\"sign\" width=\"32%\">Signature</th></tr>\n");
    for (const char* role : {"Commissioned by", "Accepted by"})
        rows += QLatin1String("<tr>") + Cell(QLatin1String(role) + QLatin1String("<br><br><br>"), "sign") +
                Cell({}, "sign").repeated(3) + QLatin1String("</tr>\n");
    return QLatin1String("<table width=\"100%\" cellspacing=\"0\">\n") + rows + QLatin1String("</table>\n");
}

QString Section(const char* title, const QString& html) {
    return Element("h2", QLatin1String(title)) + html;
}

/// What is signed stands on a page of its own.
QString LastPage(const char* title, const QString& html) {
    return QLatin1String("<h2 class=\"last\">") + QLatin1String(title) + QLatin1String("</h2>\n") + html;
}

} // namespace

QString ReportHtml(const Findings& findings, HtmlFor target, const std::function<QString(std::size_t run)>& chart) {
    QString runs;
    for (std::size_t i = 0; i < findings.runs.size(); ++i)
        runs += Run(findings.runs[i], i, chart(i));
    const QString title = QStringLiteral("Commissioning report");
    const QString body =
        Element("h1", title) + Element("p", Escaped(findings.date)) + Summary(findings) +
        Section("Drive", FactTable(findings.driveFacts)) + Section("Motor and mains", FactTable(findings.motorFacts)) +
        Section("Steps of basic commissioning", Steps(findings)) +
        Section("Runs", OrNone(runs.isEmpty(), runs, "The motor was not run.")) +
        Section("Changed: as found and as left",
                OrNone(findings.changed.empty(), ValueTable("Parameter", findings.changed, "As found", "As left"),
                       "Nothing.")) +
        Section("Different from the drive's defaults",
                OrNone(findings.notDefault.empty(), ValueTable("Parameter", findings.notDefault, "Default", "As left"),
                       "Nothing.")) +
        Section("Faults", Faults(findings)) +
        Section("Messages", OrNone(findings.boxes.empty(), BoxTable(findings.boxes), "None.")) +
        LastPage("Open points", OpenPoints(findings)) + Section("Signatures", Signatures());
    return QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>%1: %2</title>\n"
                          "<style>%3</style></head>\n<body>\n%4</body></html>\n")
        .arg(title, Escaped(findings.drive), QLatin1String(target == HtmlFor::Browser ? kBrowserStyle : kPaperStyle),
             body);
}

} // namespace krt550
