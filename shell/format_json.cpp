#include <algorithm>
#include <ostream>

#include "shell/cell_format.h"
#include "shell/escape.h"
#include "shell/renderer.h"

namespace salerpt::shell {
namespace {

// One object: "report", "name", "title" (array of lines), "columns" (field, caption, group, kind) and "rows"
// (array of objects by field name, "FSumSort" last). One row a line, so that line tools can work on it.
// Numbers are exact, dates are texts YYYY-MM-DD.
class JsonRenderer final : public Renderer {
 public:
  void Render(const Sheet& sheet, std::ostream& out) override {
    std::string text = "{\n";
    AppendMember(text, "  ", "report", sheet.report);
    AppendMember(text, ",\n  ", "name", sheet.name);
    text += ",\n  \"title\": [";
    for (std::size_t i = 0; i < sheet.lines.size(); ++i) {
      text += i == 0 ? "\n    " : ",\n    ";
      AppendJsonText(text, sheet.lines[i]);
    }
    text += sheet.lines.empty() ? "],\n" : "\n  ],\n";
    AppendColumns(text, sheet);
    out << text << "  \"rows\": [";
    WriteRows(sheet, out);
    out << "]\n}\n";
  }

 private:
  static void AppendMember(std::string& text, std::string_view before, std::string_view key,
                           std::string_view value) {
    text += before;
    AppendJsonText(text, key);
    text += ": ";
    AppendJsonText(text, value);
  }

  static void AppendColumns(std::string& text, const Sheet& sheet) {
    text += "  \"columns\": [";
    for (const SheetColumn& column : sheet.columns) {
      AppendMember(text, &column == sheet.columns.data() ? "\n    {" : ",\n    {", "field", column.field);
      AppendMember(text, ", ", "caption", column.group_number != 0 ? column.second : column.Heading());
      if (column.group_number != 0) AppendMember(text, ", ", "group", column.group);
      text += ", \"type\": " + std::to_string(static_cast<int>(column.type)) + "}";
    }
    text += sheet.columns.empty() ? "],\n" : "\n  ],\n";
  }

  // A field may stand under two headings; an object names it once. FSumSort has its place at the end.
  static bool IsFirstOfItsField(const Sheet& sheet, std::size_t column) {
    const auto begin = sheet.columns.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(column);
    return sheet.columns[column].field != "FSumSort" &&
           std::none_of(begin, end, [&end](const SheetColumn& c) { return c.field == end->field; });
  }

  static void AppendValue(std::string& text, const SheetRows& rows, std::size_t column) {
    if (rows.IsNull(column)) {
      text += "null";
      return;
    }
    switch (rows.KindOf(column)) {
      case SheetRows::Kind::kText:
        return AppendJsonText(text, rows.Text(column));
      case SheetRows::Kind::kDate:
        text += '"';
        rows.AppendExactly(text, column);
        text += '"';
        return;
      case SheetRows::Kind::kNumber:
      case SheetRows::Kind::kBoolean:
        return rows.AppendExactly(text, column);
    }
  }

  static void WriteRows(const Sheet& sheet, std::ostream& out) {
    struct Key {
      std::size_t column;
      std::string text;
    };
    std::vector<Key> keys;
    for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
      if (!IsFirstOfItsField(sheet, i)) continue;
      keys.push_back({i, {}});
      AppendJsonText(keys.back().text, sheet.columns[i].field);
      keys.back().text += ": ";
    }

    SheetRows rows(sheet);
    std::string text;
    bool any = false;
    while (rows.Next()) {
      text = any ? ",\n    {" : "\n    {";
      for (const Key& key : keys) {
        text += key.text;
        AppendValue(text, rows, key.column);
        text += ", ";
      }
      text += "\"FSumSort\": " + std::to_string(rows.SumSort()) + "}";
      out << text;
      any = true;
    }
    if (any) out << "\n  ";
  }
};

}  // namespace

std::unique_ptr<Renderer> MakeJsonRenderer() {
  return std::make_unique<JsonRenderer>();
}

}  // namespace salerpt::shell
