#pragma once

/// How a report looks.
namespace krt550 {

inline constexpr const char* kBrowserStyle = R"(
body { font: 10.5pt/1.45 "DejaVu Sans", "Segoe UI", Helvetica, Arial, sans-serif; color: #222; background: #fff;
  max-width: 185mm; margin: 12mm auto; padding: 0 6mm; }
h1 { font-size: 20pt; margin: 0 0 1mm; } h2 { font-size: 13.5pt; margin: 9mm 0 2mm; border-bottom: 1.5pt solid #1f5fa8; }
h3 { font-size: 11.5pt; margin: 7mm 0 1mm; }
table { border-collapse: collapse; width: 100%; margin: 1mm 0 3mm; }
th { text-align: left; background: #eef2f7; } th, td { padding: 1mm 2mm; border-bottom: .5pt solid #ccc; vertical-align: top; }
td.label { width: 38%; color: #555; } .number, th.number { text-align: right; white-space: nowrap; }
td.time, td.register, td.unit { white-space: nowrap; }
.good { color: #1d6b3c; } .bad { color: #a32a18; font-weight: bold; } .open { color: #8a5a00; }
.sign { border: .5pt solid #8fa3bd; } td.sign { height: 13mm; } svg { width: 100%; height: auto; }
@media print { h2, h3 { break-after: avoid; } h2.last { break-before: page; } tr, svg { break-inside: avoid; } thead { display: table-header-group; } body { margin: 0; } }
)";

// What Qt's text layout understands.
inline constexpr const char* kPaperStyle = R"(
body { font-family: "DejaVu Sans", sans-serif; font-size: 8.5pt; color: #222222; }
h1 { font-size: 18pt; margin-top: 0; margin-bottom: 2px; } h2 { font-size: 12.5pt; color: #1f4f8a; margin-top: 22px; margin-bottom: 8px; }
h2.last { page-break-before: always; }
h3 { font-size: 10pt; margin-top: 16px; margin-bottom: 4px; } p.gap { font-size: 2pt; margin: 0; }
p { margin-top: 3px; margin-bottom: 5px; }
table { border-collapse: collapse; border-width: 0px; margin-top: 4px; margin-bottom: 6px; }
th { text-align: left; background-color: #eef2f7; font-weight: bold; padding: 3px 5px; border-bottom: 1px solid #8fa3bd; }
td { padding: 3px 5px; border-bottom: 1px solid #d5d5d5; }
td.label { color: #555555; } .number { text-align: right; }
.good { color: #1d6b3c; } .bad { color: #a32a18; font-weight: bold; } .open { color: #8a5a00; } .sign { border: 1px solid #8fa3bd; }
)";

} // namespace krt550
