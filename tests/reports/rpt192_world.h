// The world in which the batch tracking runs: the middle tier gives four sets, and the tests read the grid
// that comes of them.
#pragma once

#include "tests/reports/rpt192_list_world.h"

namespace salerpt::testing {

// The values of a row that are not null: field name to kind and value.
using GridRow = std::map<std::string, std::string>;

class Rpt192World : public OrderListWorld {
 protected:
  struct SourceField {
    std::string_view name;
    FieldType type;
  };
  using SourceFields = std::vector<SourceField>;

  Rpt192World() : OrderListWorld("Rpt192", "GetRpt192Data") { AnswerSets(); }

  // The call of the fetch: gives the four sets.
  void AnswerSets() {
    sales_->On("GetRpt192Data", [this](Arguments arguments) -> Variant {
      if (on_fetch_) on_fetch_(arguments);
      return std::make_shared<Dictionary>(Entries{
          {"rsOrder", orders_}, {"rsWorkBill", tasks_}, {"rsInStock", receipts_}, {"rsOutStock", issues_}});
    });
  }

  // --- The four sets as the middle tier delivers them
  static SourceFields OrderFields() {
    return {{"FOrderInterID", FieldType::kInteger}, {"FOrderEntryID", FieldType::kInteger},
            {"FTranType", FieldType::kInteger},     {"FOrderBillNo", FieldType::kVarChar},
            {"FItemID", FieldType::kInteger},       {"FDate", FieldType::kDate},
            {"FCustNumber", FieldType::kVarChar},   {"FCustShortNumber", FieldType::kVarChar},
            {"FCustName", FieldType::kVarChar},     {"FNumber", FieldType::kVarChar},
            {"FShortNumber", FieldType::kVarChar},  {"FName", FieldType::kVarChar},
            {"FModel", FieldType::kVarChar},        {"FBom", FieldType::kVarChar},
            {"FUnitName", FieldType::kVarChar},     {"FQty", FieldType::kDouble},
            {"FPrice", FieldType::kDouble},         {"FCUUnitName", FieldType::kVarChar},
            {"FCUUnitQty", FieldType::kDouble},     {"FCUUnitPrice", FieldType::kDouble},
            {"FAmount", FieldType::kDouble},        {"FAuxPropName", FieldType::kVarChar}};
  }
  static SourceFields TaskFields() {
    return {{"FOrderInterID", FieldType::kInteger}, {"FItemID", FieldType::kInteger},
            {"FOrderEntryID", FieldType::kInteger}, {"FWorkInterID", FieldType::kInteger},
            {"FTranType", FieldType::kInteger},     {"FWorkBillNo", FieldType::kVarChar},
            {"FWorkBillQty", FieldType::kDouble}};
  }
  static SourceFields ReceiptFields() {
    return {{"FOrderInterID", FieldType::kInteger},
            {"FItemID", FieldType::kInteger},
            {"FOrderEntryID", FieldType::kInteger},
            {"FWorkInterID", FieldType::kInteger},
            {"FInStockInterID", FieldType::kInteger},
            {"FTranType", FieldType::kInteger},
            {"FInBillNo", FieldType::kVarChar},
            {"FBatchNo", FieldType::kVarChar},
            {"FKFDate", FieldType::kVarChar},
            {"FKFPeriod", FieldType::kInteger},
            {"FQty", FieldType::kDouble},
            {"FPrice", FieldType::kDouble},
            {"FCUUnitQty", FieldType::kDouble},
            {"FCUUnitPrice", FieldType::kDouble},
            {"FAmount", FieldType::kDouble}};
  }
  static SourceFields IssueFields() {
    return {{"FWorkInterID", FieldType::kInteger}, {"FOutStockInterID", FieldType::kInteger},
            {"FTranType", FieldType::kInteger},    {"FOutBillNo", FieldType::kVarChar},
            {"FWorkShop", FieldType::kVarChar},    {"FNumber", FieldType::kVarChar},
            {"FShortNumber", FieldType::kVarChar}, {"FName", FieldType::kVarChar},
            {"FModel", FieldType::kVarChar},       {"FBatchNo", FieldType::kVarChar},
            {"FKFDate", FieldType::kVarChar},      {"FKFPeriod", FieldType::kInteger},
            {"FUnitName", FieldType::kVarChar},    {"FQty", FieldType::kDouble},
            {"FPrice", FieldType::kDouble},        {"FCUUnitName", FieldType::kVarChar},
            {"FCUUnitQty", FieldType::kDouble},    {"FCUUnitPrice", FieldType::kDouble},
            {"FAmount", FieldType::kDouble}};
  }
  static RecordsetRef NewSet(const SourceFields& fields, std::string_view without = "") {
    const RecordsetRef rows = MakeRecordset();
    for (const SourceField& field : fields) {
      if (field.name == without) continue;
      rows->AppendField(field.name, field.type, field.type == FieldType::kVarChar ? 255 : 0);
    }
    rows->Open();
    return rows;
  }
  // Puts a row with these values behind the others and stands on the first.
  static void Put(Recordset& rows, Entries values, Entries more) {
    Dictionary row(values);
    for (const Dictionary::Entry& entry : more) row.Set(entry.key, entry.value);
    rows.AddNew();
    for (const Dictionary::Entry& entry : row.Entries()) {
      if (rows.FindField(entry.key) >= 0) rows.SetValue(entry.key, entry.value);
    }
    rows.Update();
    rows.MoveFirst();
  }

  // --- One row each, and `more` over what a plain one holds
  // 10 pieces, 5 pairs, for 100.
  void AddOrder(std::int32_t order, std::int32_t item, std::int32_t entry, Entries more = {}) {
    Put(*orders_,
        {{"FOrderInterID", order},
         {"FOrderEntryID", entry},
         {"FTranType", 81},
         {"FOrderBillNo", "SEORD" + std::to_string(order)},
         {"FItemID", item},
         {"FDate", Date::FromYmd(2003, 7, 15)},
         {"FCustNumber", "01.001"},
         {"FCustShortNumber", "001"},
         {"FCustName", "东方商厦"},
         {"FNumber", "02." + std::to_string(item)},
         {"FShortNumber", std::to_string(item)},
         {"FName", "台灯" + std::to_string(item)},
         {"FModel", "TD-40"},
         {"FBom", "BOM-7"},
         {"FUnitName", "只"},
         {"FQty", 10.0},
         {"FPrice", 10.0},
         {"FCUUnitName", "对"},
         {"FCUUnitQty", 5.0},
         {"FCUUnitPrice", 20.0},
         {"FAmount", 100.0},
         {"FAuxPropName", "红色"}},
        more);
  }
  // A task of 8 pieces.
  void AddTask(std::int32_t order, std::int32_t item, std::int32_t entry, std::int32_t task,
               Entries more = {}) {
    Put(*tasks_,
        {{"FOrderInterID", order},
         {"FItemID", item},
         {"FOrderEntryID", entry},
         {"FWorkInterID", task},
         {"FTranType", 85},
         {"FWorkBillNo", "WORK" + std::to_string(task)},
         {"FWorkBillQty", 8.0}},
        more);
  }
  // 4 pieces, 2 pairs, for 28, that belong to an order line and, other than 0, to a task.
  void AddReceipt(std::int32_t order, std::int32_t item, std::int32_t entry, std::int32_t task,
                  std::int32_t bill, Entries more = {}) {
    Put(*receipts_,
        {{"FOrderInterID", order},
         {"FItemID", item},
         {"FOrderEntryID", entry},
         {"FWorkInterID", task},
         {"FInStockInterID", bill},
         {"FTranType", 2},
         {"FInBillNo", "CIN" + std::to_string(bill)},
         {"FBatchNo", "B0307"},
         {"FKFDate", "2003-07-20"},
         {"FKFPeriod", 90},
         {"FQty", 4.0},
         {"FPrice", 7.0},
         {"FCUUnitQty", 2.0},
         {"FCUUnitPrice", 14.0},
         {"FAmount", 28.0}},
        more);
  }
  // 3 metres, 1.5 rolls, for 6, issued for a task.
  void AddIssue(std::int32_t task, std::int32_t bill, Entries more = {}) {
    Put(*issues_,
        {{"FWorkInterID", task},
         {"FOutStockInterID", bill},
         {"FTranType", 24},
         {"FOutBillNo", "SOUT" + std::to_string(bill)},
         {"FWorkShop", "一车间"},
         {"FNumber", "05.01"},
         {"FShortNumber", "01"},
         {"FName", "电线"},
         {"FModel", "2x0.5"},
         {"FBatchNo", "M0306"},
         {"FKFDate", "2003-06-01"},
         {"FKFPeriod", 365},
         {"FUnitName", "米"},
         {"FQty", 3.0},
         {"FPrice", 2.0},
         {"FCUUnitName", "卷"},
         {"FCUUnitQty", 1.5},
         {"FCUUnitPrice", 4.0},
         {"FAmount", 6.0}},
        more);
  }
  void ClearSets() {
    orders_ = NewSet(OrderFields());
    tasks_ = NewSet(TaskFields());
    receipts_ = NewSet(ReceiptFields());
    issues_ = NewSet(IssueFields());
  }

  // --- The grid
  RecordsetRef Rs() { return As<Recordset>(GetMember(Report(), "Rs")); }
  static std::string Told(const Variant& value) {
    switch (value.GetKind()) {
      case Variant::Kind::kInt32:
        return "long " + value.ToText();
      case Variant::Kind::kDouble:
        return "double " + value.ToText();
      case Variant::Kind::kDate:
        return "date " + value.ToText();
      case Variant::Kind::kText:
        return "text " + value.ToText();
      default:
        return std::string(KindName(value.GetKind()));
    }
  }
  // The rows that pass the set's filter.
  std::vector<GridRow> Grid() {
    std::vector<GridRow> grid;
    const RecordsetRef rows = Rs();
    if (!rows) return grid;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
      GridRow row;
      for (int i = 0; i < rows->FieldCount(); ++i) {
        const Variant value = rows->Value(i);
        if (!value.IsNull()) row[rows->Field(i).name] = Told(value);
      }
      grid.push_back(std::move(row));
    }
    return grid;
  }
  // What each row is, in short: "order 1/11", "receipt 31", "task 21", "issue 41", "item 1/11 台灯11(小计)",
  // "all 1/11 SEORD1(小计)", "total 1/11 合计".
  Lines Walk() {
    Lines walk;
    const std::vector<GridRow> grid = Grid();
    for (const GridRow& row : grid) walk.push_back(InShort(row));
    return walk;
  }
  static std::string Number(const GridRow& row, const std::string& field) {
    const auto found = row.find(field);
    return found == row.end() ? "null" : found->second.substr(found->second.find(' ') + 1);
  }
  static std::string InShort(const GridRow& row) {
    const std::string ids = Number(row, "FInterID") + "/" + Number(row, "FItemID");
    if (row.at("FSumSort") == "long 101") return "total " + ids + " " + Number(row, "FOrderBillNo");
    if (row.at("FSumSort") == "long 102") {
      return row.contains("FName") ? "item " + ids + " " + Number(row, "FName")
                                   : "all " + ids + " " + Number(row, "FOrderBillNo");
    }
    if (row.contains("FOutBillNo")) return "issue " + Number(row, "FInterID");
    if (row.contains("FInBillNo")) return "receipt " + Number(row, "FInterID");
    if (row.contains("FWorkBillNo")) return "task " + Number(row, "FInterID");
    return "order " + ids;
  }
  // The ten measures of a row, in their order: "10 5 100 8 4 2 28 3 1.5 6".
  static std::string Measures(const GridRow& row) {
    std::string text;
    for (const char* field : kMeasures) {
      if (!text.empty()) text += ' ';
      text += Number(row, field);
    }
    return text;
  }
  static constexpr const char* kMeasures[] = {"FQty",        "FCUUnitQty",  "FAmount",   "FWorkBillQty",
                                              "FQty2",       "FCUUnitQty2", "FInAmount", "FQty3",
                                              "FCUUnitQty3", "FOutAmount"};
  // The measures of the rows of one short name's first word.
  Lines MeasuresOf(std::string_view word) {
    Lines measures;
    const std::vector<GridRow> grid = Grid();
    for (const GridRow& row : grid) {
      if (InShort(row).starts_with(word)) measures.push_back(Measures(row));
    }
    return measures;
  }
  // The first row of one short name's first word.
  GridRow First(std::string_view word) {
    const std::vector<GridRow> grid = Grid();
    for (const GridRow& row : grid) {
      if (InShort(row).starts_with(word)) return row;
    }
    ADD_FAILURE() << "the grid has no row " << word;
    return {};
  }

  RecordsetRef orders_ = NewSet(OrderFields());
  RecordsetRef tasks_ = NewSet(TaskFields());
  RecordsetRef receipts_ = NewSet(ReceiptFields());
  RecordsetRef issues_ = NewSet(IssueFields());
};

}  // namespace salerpt::testing
