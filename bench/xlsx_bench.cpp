// A workbook of 200,000 rows written by the shell's renderer, beside a bare program on the same library that
// writes the same cells.
#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

#include "runtime/recordset.h"
#include "runtime/text.h"
#include "shell/renderer.h"

namespace {

namespace fs = std::filesystem;
using salerpt::FieldType;

constexpr std::int32_t kRows = 200'000;
constexpr std::array kTexts = {"FName1", "FNumber", "FName", "FModel", "FUnitName"};
constexpr int kFigures = 9;
constexpr int kFirstFigure = static_cast<int>(kTexts.size());
constexpr int kSumSort = kFirstFigure + kFigures + 2;

salerpt::RecordsetRef MakeRows() {
  salerpt::RecordsetRef rows = salerpt::MakeRecordset();
  for (const char* text : kTexts) rows->AppendField(text, FieldType::kVarChar, 355);
  for (int i = 0; i < kFigures; ++i) rows->AppendField(salerpt::Join("F", i), FieldType::kNumeric, 0);
  for (const char* name : {"FQtyDecimal", "FPriceDecimal", "FSumSort"}) {
    rows->AppendField(name, FieldType::kSmallInt, 0);
  }
  rows->Open();
  for (std::int32_t row = 0; row < kRows; ++row) {
    rows->AddNew();
    for (int i = 0; i < kFirstFigure; ++i) rows->SetText(i, salerpt::Join("产品名称", row % 1000));
    for (int i = 0; i < kFigures; ++i) rows->SetDouble(kFirstFigure + i, row * 0.37 + i * 11);
    rows->SetInt32(kSumSort - 2, 2);
    rows->SetInt32(kSumSort - 1, 4);
    rows->SetInt32(kSumSort, row % 20 == 0 ? 106 : 0);
    rows->Update();
  }
  rows->MoveFirst();
  return rows;
}

salerpt::shell::Sheet MakeSheet(const salerpt::RecordsetRef& rows) {
  salerpt::shell::Sheet sheet;
  sheet.report = "Rpt128";
  sheet.name = "销售出库汇总表";
  sheet.rows = rows;
  for (const char* text : kTexts) {
    salerpt::shell::SheetColumn column;
    column.caption = text;
    column.field = text;
    sheet.columns.push_back(column);
  }
  for (int i = 0; i < kFigures; ++i) {
    salerpt::shell::SheetColumn column;
    column.caption = salerpt::Join("F", i);
    column.field = column.caption;
    column.type = i % 2 == 0 ? salerpt::ColumnType::kQuantity : salerpt::ColumnType::kBaseAmount;
    sheet.columns.push_back(column);
  }
  return sheet;
}

void BM_Workbook(benchmark::State& state) {
  const salerpt::shell::Sheet sheet = MakeSheet(MakeRows());
  const fs::path file = fs::temp_directory_path() / "salerpt-bench.xlsx";
  for (auto _ : state) {
    std::ofstream out(file, std::ios::binary);
    salerpt::shell::MakeRenderer(salerpt::shell::Format::kXlsx, {})->Render(sheet, out);
  }
  fs::remove(file);
}
BENCHMARK(BM_Workbook)->Unit(benchmark::kMillisecond);

void BM_PeerBareWorkbook(benchmark::State& state) {
  const salerpt::RecordsetRef rows = MakeRows();
  const fs::path file = fs::temp_directory_path() / "salerpt-bench-bare.xlsx";
  for (auto _ : state) {
    lxw_workbook_options options = {};
    options.constant_memory = 1;
    lxw_workbook* book = workbook_new_opt(file.c_str(), &options);
    lxw_worksheet* page = workbook_add_worksheet(book, "x");
    lxw_format* number = workbook_add_format(book);
    format_set_num_format(number, "#,##0.00");
    rows->MoveFirst();
    for (lxw_row_t row = 0; !rows->Eof(); rows->MoveNext(), ++row) {
      lxw_col_t column = 0;
      for (int i = 0; i < kFirstFigure; ++i) {
        worksheet_write_string(page, row, column++, std::string(rows->Text(i)).c_str(), nullptr);
      }
      for (int i = 0; i < kFigures; ++i) {
        worksheet_write_number(page, row, column++, rows->Double(kFirstFigure + i), number);
      }
      worksheet_write_number(page, row, column, rows->Int32(kSumSort), nullptr);
    }
    workbook_close(book);
  }
  fs::remove(file);
}
BENCHMARK(BM_PeerBareWorkbook)->Unit(benchmark::kMillisecond);

}  // namespace
