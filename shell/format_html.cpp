#include <ostream>

#include "runtime/text.h"
#include "shell/cell_format.h"
#include "shell/escape.h"
#include "shell/renderer.h"

namespace salerpt::shell {
namespace {

constexpr std::string_view kStyle = R"(<style>
:root { --ink: #1d2733; --soft: #5b6b7c; --line: #d9e0e8; --head: #eef3f8; --total: #f5f8e9; --grand: #e3ebc8; --page: #fff; }
@media (prefers-color-scheme: dark) {
  :root { --ink: #e2e8ef; --soft: #9aa9b8; --line: #33414f; --head: #222d38; --total: #2a3122; --grand: #39432a; --page: #161d24; }
}
body { margin: 2rem; color: var(--ink); background: var(--page);
  font: 14px/1.5 system-ui, "PingFang SC", "Microsoft YaHei", "Noto Sans CJK SC", sans-serif; }
h1 { margin: 0 0 .5rem; font-size: 1.4rem; }
.lines { margin: 0 0 1rem; padding: 0; list-style: none; color: var(--soft); }
.grid { overflow: auto; max-height: 85vh; border: 1px solid var(--line); border-radius: 6px; }
table { border-collapse: separate; border-spacing: 0; width: 100%; }
th, td { padding: .3rem .6rem; border: solid var(--line); border-width: 0 1px 1px 0; white-space: nowrap; }
thead { position: sticky; top: 0; background: var(--head); }
th { font-weight: 600; text-align: center; background: var(--head); }
td.n { text-align: right; font-variant-numeric: tabular-nums; }
tr.total td { font-weight: 700; background: var(--total); }
tr.grand td { background: var(--grand); }
tbody tr:hover td { background: var(--head); }
@media print { body { margin: 0; } .grid { overflow: visible; max-height: none; border: 0; } thead { position: static; } }
</style>
)";

// One page without outer parts. A row tells its level in the attribute data-FSumSort.
class HtmlRenderer final : public Renderer {
 public:
  void Render(const Sheet& sheet, std::ostream& out) override {
    std::string text = "<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n";
    text += "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>";
    AppendHtmlText(text, sheet.name);
    Append(text, "</title>\n", kStyle, "</head>\n<body>\n<h1>");
    AppendHtmlText(text, sheet.name);
    text += "</h1>\n<ul class=\"lines\">\n";
    for (const std::string& line : sheet.lines) {
      text += "<li>";
      AppendHtmlText(text, line);
      text += "</li>\n";
    }
    text += "</ul>\n<div class=\"grid\"><table>\n";
    AppendHead(text, sheet);
    out << text << "<tbody>\n";
    WriteRows(sheet, out);
    out << "</tbody>\n</table></div>\n</body>\n</html>\n";
  }

 private:
  static void AppendHead(std::string& text, const Sheet& sheet) {
    const bool two_lines = HasSecondLine(sheet.columns);
    text += "<thead>\n<tr>";
    for (const HeadSpan& span : HeadSpans(sheet.columns)) {
      const bool spans_lines = two_lines && !span.is_group && sheet.columns[span.first].second.empty();
      text += "<th";
      if (span.count > 1) text += " colspan=\"" + std::to_string(span.count) + "\"";
      if (spans_lines) text += " rowspan=\"2\"";
      text += ">";
      AppendHtmlText(text, span.text);
      text += "</th>";
    }
    text += "</tr>\n";
    if (two_lines) AppendSecondLine(text, sheet);
    text += "</thead>\n";
  }

  static void AppendSecondLine(std::string& text, const Sheet& sheet) {
    text += "<tr>";
    for (const SheetColumn& column : sheet.columns) {
      if (column.group_number == 0 && column.second.empty()) continue;
      text += "<th>";
      AppendHtmlText(text, column.second);
      text += "</th>";
    }
    text += "</tr>\n";
  }

  static void WriteRows(const Sheet& sheet, std::ostream& out) {
    SheetRows rows(sheet);
    std::string text;
    std::string cell;
    while (rows.Next()) {
      text = "<tr data-FSumSort=\"" + std::to_string(rows.SumSort()) + "\"";
      if (rows.IsTotal())
        text += rows.SumSort() == kGrandTotal ? " class=\"total grand\"" : " class=\"total\"";
      text += ">";
      for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
        text += sheet.columns[i].IsNumber() ? "<td class=\"n\">" : "<td>";
        cell.clear();
        rows.AppendShown(cell, i);
        AppendHtmlText(text, cell);
        text += "</td>";
      }
      text += "</tr>\n";
      out << text;
    }
  }
};

}  // namespace

std::unique_ptr<Renderer> MakeHtmlRenderer() {
  return std::make_unique<HtmlRenderer>();
}

}  // namespace salerpt::shell
