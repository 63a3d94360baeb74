#include <algorithm>
#include <ostream>

#include "runtime/text.h"
#include "shell/cell_format.h"
#include "shell/escape.h"
#include "shell/renderer.h"
#include "shell/text_width.h"

namespace salerpt::shell {
namespace {

constexpr std::string_view kTotalMark = "*";
constexpr std::string_view kSeparator = " | ";
constexpr std::string_view kSumSort = "FSumSort";

// Columns lined up for reading. A total row carries a mark in front, a grand total a rule above it as well,
// so that they are seen without colours too.
class TableRenderer final : public Renderer {
 public:
  explicit TableRenderer(const PrintOptions& options) : options_(options) {}

  void Render(const Sheet& sheet, std::ostream& out) override {
    out << sheet.name << '\n';
    for (const std::string& line : sheet.lines) out << line << '\n';
    out << '\n';
    if (sheet.columns.empty()) return;
    const std::vector<std::size_t> widths = Widths(sheet);
    WriteHead(sheet, widths, out);
    WriteRows(sheet, widths, out);
  }

 private:
  static void AppendCell(std::string& text, const SheetRows& rows, std::size_t column) {
    if (!rows.IsNull(column) && rows.KindOf(column) == SheetRows::Kind::kText) {
      std::string shown;
      rows.AppendShown(shown, column);
      AppendTerminalText(text, shown);
    } else {
      rows.AppendShown(text, column);
    }
  }

  static std::vector<std::size_t> Widths(const Sheet& sheet) {
    std::vector<std::size_t> widths;
    for (const SheetColumn& column : sheet.columns) {
      widths.push_back(std::max(TextWidth(column.caption), TextWidth(column.second)));
    }
    SheetRows rows(sheet);
    std::string cell;
    while (rows.Next()) {
      for (std::size_t i = 0; i < widths.size(); ++i) {
        cell.clear();
        AppendCell(cell, rows, i);
        widths[i] = std::max(widths[i], TextWidth(cell));
      }
    }
    for (const HeadSpan& span : HeadSpans(sheet.columns)) {
      const std::size_t width = SpanWidth(span, widths);
      widths[span.first + span.count - 1] += std::max(TextWidth(span.text), width) - width;
    }
    return widths;
  }

  static std::size_t SpanWidth(const HeadSpan& span, const std::vector<std::size_t>& widths) {
    std::size_t width = (span.count - 1) * kSeparator.size();
    for (std::size_t i = 0; i < span.count; ++i) width += widths[span.first + i];
    return width;
  }

  static void AppendAligned(std::string& text, const SheetColumn& column, std::string_view cell,
                            std::size_t width) {
    text += kSeparator;
    if (column.IsNumber()) {
      AppendRight(text, cell, width);
    } else {
      AppendLeft(text, cell, width);
    }
  }

  static void WriteHead(const Sheet& sheet, const std::vector<std::size_t>& widths, std::ostream& out) {
    std::string text(kTotalMark.size(), ' ');
    for (const HeadSpan& span : HeadSpans(sheet.columns)) {
      if (span.is_group) {
        text += kSeparator;
        AppendCentred(text, span.text, SpanWidth(span, widths));
      } else {
        AppendAligned(text, sheet.columns[span.first], span.text, widths[span.first]);
      }
    }
    Append(text, kSeparator, kSumSort, "\n");
    if (HasSecondLine(sheet.columns)) {
      text.append(kTotalMark.size(), ' ');
      for (std::size_t i = 0; i < widths.size(); ++i) {
        AppendAligned(text, sheet.columns[i], sheet.columns[i].second, widths[i]);
      }
      Append(text, kSeparator, std::string(kSumSort.size(), ' '));
      text.erase(text.find_last_not_of(' ') + 1);
      text += '\n';
    }
    out << text << Rule(widths, '-');
  }

  static std::string Rule(const std::vector<std::size_t>& widths, char line) {
    std::string text(kTotalMark.size() + 1, line);
    for (const std::size_t width : widths) text.append("+").append(width + 2, line);
    text.append("+").append(kSumSort.size() + 1, line);
    return text + '\n';
  }

  void WriteRows(const Sheet& sheet, const std::vector<std::size_t>& widths, std::ostream& out) const {
    SheetRows rows(sheet);
    std::string text;
    std::string cell;
    while (rows.Next()) {
      text.clear();
      const bool is_total = rows.IsTotal();
      if (rows.SumSort() == kGrandTotal) text += Rule(widths, '=');
      if (is_total) text += options_.total_begin;
      if (is_total) {
        text += kTotalMark;
      } else {
        text.append(kTotalMark.size(), ' ');
      }
      for (std::size_t i = 0; i < widths.size(); ++i) {
        cell.clear();
        AppendCell(cell, rows, i);
        AppendAligned(text, sheet.columns[i], cell, widths[i]);
      }
      text += kSeparator;
      AppendRight(text, std::to_string(rows.SumSort()), kSumSort.size());
      if (is_total) text += options_.total_end;
      text += '\n';
      out << text;
    }
  }

  PrintOptions options_;
};

}  // namespace

std::unique_ptr<Renderer> MakeTableRenderer(const PrintOptions& options) {
  return std::make_unique<TableRenderer>(options);
}

}  // namespace salerpt::shell
