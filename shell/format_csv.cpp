#include <ostream>

#include "shell/cell_format.h"
#include "shell/escape.h"
#include "shell/renderer.h"

namespace salerpt::shell {
namespace {

// RFC 4180 with line feeds: the report's name and the title lines, one record of one field each; the
// headings; the rows. Numbers stand with all their digits, a null is an empty field.
class CsvRenderer final : public Renderer {
 public:
  void Render(const Sheet& sheet, std::ostream& out) override {
    std::string text;
    AppendLine(text, sheet.name);
    for (const std::string& line : sheet.lines) AppendLine(text, line);
    for (const SheetColumn& column : sheet.columns) {
      AppendCsvField(text, column.Heading());
      text += ',';
    }
    AppendLine(text, "FSumSort");
    out << text;
    WriteRows(sheet, out);
  }

 private:
  static void AppendLine(std::string& text, std::string_view field) {
    AppendCsvField(text, field);
    text += '\n';
  }

  static void WriteRows(const Sheet& sheet, std::ostream& out) {
    SheetRows rows(sheet);
    std::string text;
    while (rows.Next()) {
      text.clear();
      for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
        if (!rows.IsNull(i) && rows.KindOf(i) == SheetRows::Kind::kText) {
          AppendCsvField(text, rows.Text(i));
        } else {
          rows.AppendExactly(text, i);
        }
        text += ',';
      }
      text += std::to_string(rows.SumSort());
      text += '\n';
      out << text;
    }
  }
};

}  // namespace

std::unique_ptr<Renderer> MakeCsvRenderer() {
  return std::make_unique<CsvRenderer>();
}

}  // namespace salerpt::shell
