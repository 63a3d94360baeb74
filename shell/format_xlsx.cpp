#include <fcntl.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ostream>

#include "runtime/error.h"
#include "runtime/text.h"
#include "shell/cell_format.h"
#include "shell/renderer.h"
#include "shell/text_width.h"
#include "shell/xlsx_check.h"

namespace salerpt::shell {
namespace {

constexpr int kMaxRows = LXW_ROW_MAX;
constexpr int kSampledRows = 200;
constexpr double kMinWidth = 8;
constexpr double kMaxWidth = 60;
constexpr const char* kDateFormat = "yyyy-mm-dd";

[[noreturn]] void Fail(std::string_view what) {
  throw RuntimeError(error_number::kInvalidCall, "Shell", Join("the workbook cannot be written: ", what));
}

void Require(lxw_error error) {
  if (error != LXW_NO_ERROR) Fail(lxw_strerror(error));
}

// A file without a name in the system's folder for such files. The workbook library wants a name to write to.
class NamelessFile {
 public:
  NamelessFile() : file_(std::tmpfile()) {
    if (file_ == nullptr) Fail("no temporary file can be made");
  }
  ~NamelessFile() { std::fclose(file_); }
  NamelessFile(const NamelessFile&) = delete;
  NamelessFile& operator=(const NamelessFile&) = delete;

  [[nodiscard]] std::FILE* Get() const { return file_; }
  [[nodiscard]] std::string Path() const { return Join("/proc/self/fd/", fileno(file_)); }
  void CopyTo(std::ostream& out) const {
    std::rewind(file_);
    std::array<char, std::size_t{64} * 1024> block;
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), file_)) {
      out.write(block.data(), static_cast<std::streamsize>(size));
    }
  }

 private:
  std::FILE* file_;
};

// While it lives, nothing reaches standard error: the workbook library prints its failures there, beside
// giving them.
class QuietLibrary {
 public:
  QuietLibrary() : kept_(::dup(STDERR_FILENO)) {
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0) return;
    if (kept_ >= 0) ::dup2(nowhere, STDERR_FILENO);
    ::close(nowhere);
  }
  ~QuietLibrary() {
    if (kept_ < 0) return;
    ::dup2(kept_, STDERR_FILENO);
    ::close(kept_);
  }
  QuietLibrary(const QuietLibrary&) = delete;
  QuietLibrary& operator=(const QuietLibrary&) = delete;

 private:
  int kept_;
};

// The cell formats of one workbook, each made once.
class Formats {
 public:
  explicit Formats(lxw_workbook* book) : book_(book) {}

  lxw_format* Heading() {
    if (heading_ == nullptr) {
      heading_ = New();
      format_set_bold(heading_);
      format_set_align(heading_, LXW_ALIGN_CENTER);
      format_set_bg_color(heading_, 0xEEF3F8);
      format_set_border(heading_, LXW_BORDER_THIN);
    }
    return heading_;
  }
  lxw_format* Name() {
    lxw_format* format = New();
    format_set_bold(format);
    format_set_font_size(format, 14);
    return format;
  }
  // Nothing, which is the plain format, for details: one word less in every cell.
  lxw_format* Text(bool is_total) { return is_total ? Slot(text_, is_total, "") : nullptr; }
  lxw_format* DateOf(bool is_total) { return Slot(date_, is_total, kDateFormat); }
  // `decimals` of nothing: the digits as they are.
  lxw_format* Number(std::optional<int> decimals, bool is_total) {
    if (!decimals) return Text(is_total);
    const int shown = std::clamp(*decimals, 0, static_cast<int>(numbers_.size()) - 1);
    std::string pattern = "#,##0";
    if (shown > 0) pattern += '.' + std::string(static_cast<std::size_t>(shown), '0');
    return Slot(numbers_[static_cast<std::size_t>(shown)], is_total, pattern.c_str());
  }

 private:
  using Pair = std::array<lxw_format*, 2>;  // for details, for totals

  lxw_format* New() {
    lxw_format* format = workbook_add_format(book_);
    if (format == nullptr) Fail("out of memory");
    return format;
  }
  lxw_format* Slot(Pair& pair, bool is_total, const char* pattern) {
    lxw_format*& format = pair[is_total ? 1 : 0];
    if (format != nullptr) return format;
    format = New();
    if (*pattern != '\0') format_set_num_format(format, pattern);
    if (is_total) {
      format_set_bold(format);
      format_set_bg_color(format, 0xF5F8E9);
      format_set_top(format, LXW_BORDER_THIN);
    }
    return format;
  }

  lxw_workbook* book_;
  lxw_format* heading_ = nullptr;
  Pair text_{};
  Pair date_{};
  std::array<Pair, 11> numbers_{};
};

// Fills one workbook, row after row, as the memory-saving mode of the library asks for.
class Workbook {
 public:
  Workbook(const Sheet& sheet, const std::string& path) : sheet_(sheet) {
    lxw_workbook_options options = {};
    options.constant_memory = LXW_TRUE;
    book_ = workbook_new_opt(path.c_str(), &options);
    if (book_ == nullptr) Fail("out of memory");
    formats_ = std::make_unique<Formats>(book_);
    page_ = workbook_add_worksheet(book_, sheet.report.empty() ? nullptr : sheet.report.c_str());
    if (page_ == nullptr) Fail(Join("\"", sheet.report, "\" cannot name a sheet"));
  }
  ~Workbook() {
    if (book_ != nullptr) lxw_workbook_free(book_);
  }
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;

  void Fill() {
    SheetRows rows(sheet_);
    SetWidths(rows);
    WriteLines();
    WriteHead();
    worksheet_freeze_panes(page_, row_,
                           static_cast<lxw_col_t>(std::min<std::size_t>(
                               static_cast<std::size_t>(std::max(sheet_.frozen_columns, 0)), Columns())));
    if (sheet_.rows && sheet_.rows->RecordCount() > kMaxRows - static_cast<int>(row_)) {
      Fail(Join(std::to_string(sheet_.rows->RecordCount()), " rows are more than a sheet holds (", kMaxRows,
                ")"));
    }
    while (rows.Next()) WriteRow(rows);
  }

  void Close() {
    lxw_workbook* book = book_;
    book_ = nullptr;
    const QuietLibrary quiet;
    Require(workbook_close(book));
  }

 private:
  [[nodiscard]] std::size_t Columns() const { return sheet_.columns.size(); }

  // As wide as the headings and the first rows ask for; the rest is not looked at before it is written.
  void SetWidths(SheetRows& rows) {
    std::vector<std::size_t> widths;
    for (const SheetColumn& column : sheet_.columns) {
      widths.push_back(std::max(TextWidth(column.caption), TextWidth(column.second)));
    }
    std::string cell;
    for (int i = 0; i < kSampledRows && rows.Next(); ++i) {
      for (std::size_t column = 0; column < widths.size(); ++column) {
        cell.clear();
        rows.AppendShown(cell, column);
        widths[column] = std::max(widths[column], TextWidth(cell));
      }
    }
    rows.Rewind();
    for (std::size_t column = 0; column < widths.size(); ++column) {
      const auto number = static_cast<lxw_col_t>(column);
      const double width = std::clamp(static_cast<double>(widths[column]) + 3, kMinWidth, kMaxWidth);
      Require(worksheet_set_column(page_, number, number, width, nullptr));
    }
  }

  void WriteText(std::size_t column, const std::string& text, lxw_format* format) {
    Require(worksheet_write_string(page_, row_, static_cast<lxw_col_t>(column), text.c_str(), format));
  }

  void WriteLines() {
    WriteText(0, sheet_.name, formats_->Name());
    ++row_;
    for (const std::string& line : sheet_.lines) {
      WriteText(0, line, nullptr);
      ++row_;
    }
  }

  // Group headings are merged over their columns. One-line headings are not merged downward, which would go
  // back to a row already given out, but stand in the lower line.
  void WriteHead() {
    lxw_format* heading = formats_->Heading();
    const bool two_lines = HasSecondLine(sheet_.columns);
    for (const HeadSpan& span : HeadSpans(sheet_.columns)) {
      const bool stands_above = !two_lines || span.is_group || !sheet_.columns[span.first].second.empty();
      const std::string text(stands_above ? span.text : "");
      if (span.count > 1) {
        Require(worksheet_merge_range(page_, row_, static_cast<lxw_col_t>(span.first), row_,
                                      static_cast<lxw_col_t>(span.first + span.count - 1), text.c_str(),
                                      heading));
      } else {
        WriteText(span.first, text, heading);
      }
    }
    if (!two_lines) WriteText(Columns(), "FSumSort", heading);
    ++row_;
    if (!two_lines) return;
    for (std::size_t i = 0; i < Columns(); ++i) {
      const SheetColumn& column = sheet_.columns[i];
      WriteText(i, column.group_number != 0 || !column.second.empty() ? column.second : column.caption,
                heading);
    }
    WriteText(Columns(), "FSumSort", heading);
    ++row_;
  }

  void WriteRow(const SheetRows& rows) {
    const bool is_total = rows.IsTotal();
    for (std::size_t i = 0; i < Columns(); ++i) WriteCell(rows, i, is_total);
    Require(worksheet_write_number(page_, row_, static_cast<lxw_col_t>(Columns()), rows.SumSort(),
                                   formats_->Text(is_total)));
    ++row_;
  }

  void WriteCell(const SheetRows& rows, std::size_t column, bool is_total) {
    const auto number = static_cast<lxw_col_t>(column);
    if (rows.IsNull(column)) {
      if (is_total) Require(worksheet_write_blank(page_, row_, number, formats_->Text(is_total)));
      return;
    }
    switch (rows.KindOf(column)) {
      case SheetRows::Kind::kText:
        cell_ = rows.Text(column);
        return WriteText(column, cell_, formats_->Text(is_total));
      case SheetRows::Kind::kNumber:
        return Require(worksheet_write_number(page_, row_, number, rows.Number(column),
                                              formats_->Number(rows.Decimals(column), is_total)));
      case SheetRows::Kind::kDate:
        // Both systems count days from the same day on.
        return Require(worksheet_write_number(page_, row_, number, rows.DateOf(column).Serial(),
                                              formats_->DateOf(is_total)));
      case SheetRows::Kind::kBoolean:
        return Require(worksheet_write_boolean(page_, row_, number, rows.Boolean(column) ? 1 : 0,
                                               formats_->Text(is_total)));
    }
  }

  const Sheet& sheet_;
  lxw_workbook* book_ = nullptr;
  lxw_worksheet* page_ = nullptr;
  std::unique_ptr<Formats> formats_;
  lxw_row_t row_ = 0;
  std::string cell_;
};

// An Excel workbook of one sheet. Numbers are numbers, shown with the decimals of their kind; the last column
// holds FSumSort.
class XlsxRenderer final : public Renderer {
 public:
  void Render(const Sheet& sheet, std::ostream& out) override {
    const NamelessFile file;
    Workbook book(sheet, file.Path());
    book.Fill();
    book.Close();
    RequireWholeWorkbook(file.Get());
    file.CopyTo(out);
  }
};

}  // namespace

std::unique_ptr<Renderer> MakeXlsxRenderer() {
  return std::make_unique<XlsxRenderer>();
}

}  // namespace salerpt::shell
