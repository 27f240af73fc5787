#pragma once

#include "host/report/findings.h"

#include <functional>

namespace krt550 {

/// Where the page goes: to a browser, which knows all of CSS, or to paper through Qt, which knows some of it.
enum class HtmlFor { Browser, Paper };

/// The report as one page of HTML. `chart` gives what stands for the chart of a run.
QString ReportHtml(const Findings& findings, HtmlFor target, const std::function<QString(std::size_t run)>& chart);

} // namespace krt550
