#include "shell/sql_output.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "runtime/text.h"
#include "shell/escape.h"
#include "shell/failure.h"
#include "shell/text_grid.h"

namespace salerpt::shell {
namespace {

using tsql::Column;
using tsql::Value;

class TableOutput final : public tsql::RowSink {
 public:
  explicit TableOutput(std::ostream& out) : out_(out) {}

  void BeginRows(std::span<const Column> columns) override {
    std::vector<TextGrid::Column> headings;
    types_.clear();
    for (const Column& column : columns) {
      headings.push_back({column.name, column.type.IsNumber()});
      types_.push_back(column.type);
    }
    grid_.emplace(std::move(headings));
  }
  void Row(std::span<const Value> cells) override {
    std::vector<std::string> row;
    row.reserve(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) row.push_back(cells[i].Format(types_[i]));
    grid_->Add(std::move(row));
  }
  void EndRows() override {
    if (!first_) out_ << '\n';
    first_ = false;
    grid_->Write(out_);
    grid_.reset();
  }

 private:
  std::ostream& out_;
  std::vector<tsql::ColumnType> types_;
  std::optional<TextGrid> grid_;
  bool first_ = true;
};

class CsvOutput final : public tsql::RowSink {
 public:
  explicit CsvOutput(std::ostream& out) : out_(out) {}

  void BeginRows(std::span<const Column> columns) override {
    if (!first_) out_ << '\n';
    first_ = false;
    types_.clear();
    text_.clear();
    for (const Column& column : columns) {
      if (!types_.empty()) text_ += ',';
      AppendCsvField(text_, column.name);
      types_.push_back(column.type);
    }
    text_ += '\n';
    out_ << text_;
  }
  void Row(std::span<const Value> cells) override {
    text_.clear();
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i > 0) text_ += ',';
      if (!cells[i].IsNull()) AppendCsvField(text_, cells[i].Format(types_[i]));
    }
    text_ += '\n';
    out_ << text_;
  }
  void EndRows() override {}

 private:
  std::ostream& out_;
  std::vector<tsql::ColumnType> types_;
  std::string text_;
  bool first_ = true;
};

class JsonOutput final : public tsql::RowSink {
 public:
  explicit JsonOutput(std::ostream& out) : out_(out) {}

  void BeginRows(std::span<const Column> columns) override {
    types_.clear();
    text_ = "{\"columns\": [";
    for (const Column& column : columns) {
      text_ += types_.empty() ? "{\"name\": " : ", {\"name\": ";
      AppendJsonText(text_, column.name);
      text_ += ", \"type\": ";
      AppendJsonText(text_, column.type.Name());
      text_ += '}';
      types_.push_back(column.type);
    }
    text_ += "], \"rows\": [";
    first_row_ = true;
  }
  void Row(std::span<const Value> cells) override {
    text_ += first_row_ ? "[" : ", [";
    first_row_ = false;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i > 0) text_ += ", ";
      AppendCell(cells[i], types_[i]);
    }
    text_ += ']';
    out_ << text_;
    text_.clear();
  }
  void EndRows() override {
    out_ << text_ << "]}\n";
    text_.clear();
  }

 private:
  void AppendCell(const Value& cell, const tsql::ColumnType& type) {
    if (cell.IsNull()) {
      text_ += "null";
    } else if (type.IsNumber()) {
      text_ += cell.Format(type);
    } else {
      AppendJsonText(text_, cell.Format(type));
    }
  }

  std::ostream& out_;
  std::vector<tsql::ColumnType> types_;
  std::string text_;
  bool first_row_ = true;
};

}  // namespace

std::unique_ptr<tsql::RowSink> MakeSqlOutput(std::string_view format, std::ostream& out) {
  if (format == "table") return std::make_unique<TableOutput>(out);
  if (format == "csv") return std::make_unique<CsvOutput>(out);
  if (format == "json") return std::make_unique<JsonOutput>(out);
  RaiseUsage(Join("unknown format \"", format, "\": table, csv or json was expected"));
}

}  // namespace salerpt::shell
