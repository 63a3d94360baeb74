// The merge of the order batch tracking beside the same merge in SQLite in memory. An order line has two
// receipts, one of them for its task too, one task and three issues.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "reports/order/rpt192_merge.h"
#include "runtime/recordset.h"
#include "runtime/text.h"

namespace {

using salerpt::FieldType;
using salerpt::Recordset;
using salerpt::RecordsetRef;

constexpr std::int32_t kLinesOfOrder = 5;
constexpr std::int32_t kReceiptsOfLine = 2;
constexpr std::int32_t kIssuesOfTask = 3;

// --- The made-up shop: what stands in a row by its number

struct Line {
  std::int32_t order, entry, item;
};
Line LineAt(std::int32_t line) {
  return {1000 + line / kLinesOfOrder, line % kLinesOfOrder + 1, 1 + line / 2 % 3000};
}
std::int32_t TaskOf(std::int32_t line) {
  return 500'000 + line;
}
// Rows of tasks, receipts and issues stand in the order of the order lines, or in that of their bills: these
// are written in the weeks after the order, so among some thousand rows any may be the next.
enum class RowOrder : std::uint8_t { kByLine, kByBill };
std::int32_t PlaceAt(std::int32_t row, std::int32_t rows, RowOrder order) {
  if (order == RowOrder::kByLine) return row;
  constexpr std::int32_t kRowsOfWeeks = 5000;
  const std::int32_t first = row / kRowsOfWeeks * kRowsOfWeeks;
  const std::int32_t count = std::min(kRowsOfWeeks, rows - first);
  return first + static_cast<std::int32_t>(std::int64_t{row - first} * 1571 % count);
}
double QtyOf(std::int32_t row) {
  return row % 97 + 1;
}

struct FieldSketch {
  std::string_view name;
  FieldType type;
};
constexpr FieldType kInt = FieldType::kInteger;
constexpr FieldType kNum = FieldType::kNumeric;
constexpr FieldType kTxt = FieldType::kVarChar;

template <std::size_t kCount>
RecordsetRef EmptySet(const std::array<FieldSketch, kCount>& fields) {
  RecordsetRef set = salerpt::MakeRecordset();
  for (const FieldSketch& field : fields) set->AppendField(field.name, field.type, 255);
  set->Open();
  return set;
}

constexpr std::array<FieldSketch, 22> kOrderFields{{
    {"FOrderInterID", kInt},
    {"FOrderEntryID", kInt},
    {"FItemID", kInt},
    {"FTranType", kInt},
    {"FDate", FieldType::kTimestamp},
    {"FQty", kNum},
    {"FPrice", kNum},
    {"FCUUnitQty", kNum},
    {"FCUUnitPrice", kNum},
    {"FAmount", kNum},
    {"FOrderBillNo", kTxt},
    {"FCustNumber", kTxt},
    {"FCustShortNumber", kTxt},
    {"FCustName", kTxt},
    {"FNumber", kTxt},
    {"FShortNumber", kTxt},
    {"FName", kTxt},
    {"FModel", kTxt},
    {"FBom", kTxt},
    {"FUnitName", kTxt},
    {"FCUUnitName", kTxt},
    {"FAuxPropName", kTxt},
}};

RecordsetRef MakeOrders(std::int32_t lines) {
  RecordsetRef set = EmptySet(kOrderFields);
  for (std::int32_t row = 0; row < lines; ++row) {
    const Line line = LineAt(row);
    set->AddNew();
    set->SetInt32(0, line.order);
    set->SetInt32(1, line.entry);
    set->SetInt32(2, line.item);
    set->SetInt32(3, 81);
    set->SetDate(4, salerpt::Date(45474 + row % 365));
    set->SetDouble(5, QtyOf(row));
    set->SetDouble(6, 12.5);
    set->SetDouble(7, QtyOf(row));
    set->SetDouble(8, 12.5);
    set->SetDouble(9, QtyOf(row) * 12.5);
    set->SetText(10, salerpt::Join("SEORD", line.order));
    set->SetText(11, "01.0017");
    set->SetText(12, "0017");
    set->SetText(13, "青岚贸易有限公司");
    set->SetText(14, "01.02.0003");
    set->SetText(15, "0003");
    set->SetText(16, "不锈钢保温杯");
    set->SetText(17, "500ml");
    set->SetText(18, "");
    set->SetText(19, "只");
    set->SetText(20, "箱");
    set->SetText(21, "");
    set->Update();
  }
  return set;
}

constexpr std::array<FieldSketch, 7> kTaskFields{{
    {"FOrderInterID", kInt},
    {"FItemID", kInt},
    {"FOrderEntryID", kInt},
    {"FWorkInterID", kInt},
    {"FTranType", kInt},
    {"FWorkBillNo", kTxt},
    {"FWorkBillQty", kNum},
}};

RecordsetRef MakeTasks(std::int32_t lines, RowOrder order) {
  RecordsetRef set = EmptySet(kTaskFields);
  for (std::int32_t row = 0; row < lines; ++row) {
    const std::int32_t number = PlaceAt(row, lines, order);
    const Line line = LineAt(number);
    set->AddNew();
    set->SetInt32(0, line.order);
    set->SetInt32(1, line.item);
    set->SetInt32(2, line.entry);
    set->SetInt32(3, TaskOf(number));
    set->SetInt32(4, 85);
    set->SetText(5, salerpt::Join("WORK", number));
    set->SetDouble(6, QtyOf(number));
    set->Update();
  }
  return set;
}

constexpr std::array<FieldSketch, 15> kReceiptFields{{
    {"FOrderInterID", kInt},
    {"FItemID", kInt},
    {"FOrderEntryID", kInt},
    {"FWorkInterID", kInt},
    {"FInStockInterID", kInt},
    {"FTranType", kInt},
    {"FKFPeriod", kInt},
    {"FQty", kNum},
    {"FPrice", kNum},
    {"FCUUnitQty", kNum},
    {"FCUUnitPrice", kNum},
    {"FAmount", kNum},
    {"FInBillNo", kTxt},
    {"FBatchNo", kTxt},
    {"FKFDate", kTxt},
}};

RecordsetRef MakeReceipts(std::int32_t lines, RowOrder order) {
  RecordsetRef set = EmptySet(kReceiptFields);
  const std::int32_t rows = lines * kReceiptsOfLine;
  for (std::int32_t row = 0; row < rows; ++row) {
    const std::int32_t number = PlaceAt(row, rows, order);
    const std::int32_t line_number = number / kReceiptsOfLine;
    const Line line = LineAt(line_number);
    set->AddNew();
    set->SetInt32(0, line.order);
    set->SetInt32(1, line.item);
    set->SetInt32(2, line.entry);
    set->SetInt32(3, number % kReceiptsOfLine == 0 ? TaskOf(line_number) : 0);
    set->SetInt32(4, row / 4);
    set->SetInt32(5, 2);
    set->SetInt32(6, 180);
    set->SetDouble(7, QtyOf(number));
    set->SetDouble(8, 9.5);
    set->SetDouble(9, QtyOf(number));
    set->SetDouble(10, 9.5);
    set->SetDouble(11, QtyOf(number) * 9.5);
    set->SetText(12, salerpt::Join("CIN", row / 4));
    set->SetText(13, "20240703");
    set->SetText(14, "2024-07-03");
    set->Update();
  }
  return set;
}

constexpr std::array<FieldSketch, 19> kIssueFields{{
    {"FWorkInterID", kInt}, {"FOutStockInterID", kInt},
    {"FTranType", kInt},    {"FKFPeriod", kInt},
    {"FQty", kNum},         {"FPrice", kNum},
    {"FCUUnitQty", kNum},   {"FCUUnitPrice", kNum},
    {"FAmount", kNum},      {"FOutBillNo", kTxt},
    {"FWorkShop", kTxt},    {"FNumber", kTxt},
    {"FShortNumber", kTxt}, {"FName", kTxt},
    {"FModel", kTxt},       {"FBatchNo", kTxt},
    {"FKFDate", kTxt},      {"FUnitName", kTxt},
    {"FCUUnitName", kTxt},
}};

RecordsetRef MakeIssues(std::int32_t lines, RowOrder order) {
  RecordsetRef set = EmptySet(kIssueFields);
  const std::int32_t rows = lines * kIssuesOfTask;
  for (std::int32_t row = 0; row < rows; ++row) {
    const std::int32_t number = PlaceAt(row, rows, order);
    set->AddNew();
    set->SetInt32(0, TaskOf(number / kIssuesOfTask));
    set->SetInt32(1, row / 4);
    set->SetInt32(2, 24);
    set->SetInt32(3, 360);
    set->SetDouble(4, QtyOf(number));
    set->SetDouble(5, 3.25);
    set->SetDouble(6, QtyOf(number));
    set->SetDouble(7, 3.25);
    set->SetDouble(8, QtyOf(number) * 3.25);
    set->SetText(9, salerpt::Join("SOUT", row / 4));
    set->SetText(10, "一车间");
    set->SetText(11, "02.01.0011");
    set->SetText(12, "0011");
    set->SetText(13, "不锈钢带");
    set->SetText(14, "0.5mm");
    set->SetText(15, "B0611");
    set->SetText(16, "2024-06-11");
    set->SetText(17, "千克");
    set->SetText(18, "千克");
    set->Update();
  }
  return set;
}

// What a right merge ends with: the rows and the total row's sums of order, receipt and issue amounts.
struct Outcome {
  std::int64_t rows = 0;
  double order_amount = 0, receipt_amount = 0, issue_amount = 0;
  friend bool operator==(const Outcome&, const Outcome&) = default;
};

Outcome ExpectedOutcome(std::int32_t lines) {
  Outcome expected;
  expected.rows = 1;
  for (std::int32_t row = 0; row < lines; ++row) {
    const Line line = LineAt(row);
    const bool is_last = row + 1 == lines;
    const bool closes_order = is_last || LineAt(row + 1).order != line.order;
    const bool closes_item = closes_order || LineAt(row + 1).item != line.item;
    // The line, its receipts, the task, the task's receipt, its issues.
    expected.rows +=
        1 + kReceiptsOfLine + 1 + 1 + kIssuesOfTask + (closes_item ? 1 : 0) + (closes_order ? 1 : 0);
    expected.order_amount += QtyOf(row) * 12.5;
    for (std::int32_t i = 0; i < kReceiptsOfLine; ++i) {
      const double amount = QtyOf(row * kReceiptsOfLine + i) * 9.5;
      expected.receipt_amount += i == 0 ? 2 * amount : amount;
    }
    for (std::int32_t i = 0; i < kIssuesOfTask; ++i) {
      expected.issue_amount += QtyOf(row * kIssuesOfTask + i) * 3.25;
    }
  }
  return expected;
}

salerpt::TrackingSets MakeSets(std::int32_t lines, RowOrder order) {
  return {.orders = MakeOrders(lines),
          .tasks = MakeTasks(lines, order),
          .receipts = MakeReceipts(lines, order),
          .issues = MakeIssues(lines, order)};
}

// Drops the hash indexes, which every fetch builds anew on new sets, by changing key values to themselves.
void ForgetIndexes(const salerpt::TrackingSets& sets) {
  for (const RecordsetRef& set : {sets.tasks, sets.receipts, sets.issues}) {
    set->SetFilter("");
    for (const std::string_view name : {"FOrderInterID", "FItemID", "FOrderEntryID", "FWorkInterID"}) {
      const int field = set->FindField(name);
      if (field >= 0) set->SetInt32(field, set->Int32(field));
    }
  }
}

// Ten times the lines, in both orders.
void Sizes(benchmark::internal::Benchmark* measured) {
  measured->ArgNames({"lines", "by_bill"})->ArgsProduct({{10'000, 100'000}, {0, 1}});
  measured->Unit(benchmark::kMillisecond);
}

void BM_Merge(benchmark::State& state) {
  const auto lines = static_cast<std::int32_t>(state.range(0));
  const salerpt::TrackingSets sets = MakeSets(lines, static_cast<RowOrder>(state.range(1)));
  RecordsetRef list;
  for (auto _ : state) {
    state.PauseTiming();
    list.reset();
    ForgetIndexes(sets);
    state.ResumeTiming();
    list = MergeTracking(sets);
  }
  list->SetFilter("FSumSort=101");
  const double order_amount = list->Value("FAmount").ToDouble();
  const double receipt_amount = list->Value("FInAmount").ToDouble();
  const double issue_amount = list->Value("FOutAmount").ToDouble();
  list->SetFilter("");
  if (Outcome{list->RecordCount(), order_amount, receipt_amount, issue_amount} != ExpectedOutcome(lines)) {
    state.SkipWithError("the merge did not give the rows and the total that it should");
    return;
  }
  state.counters["rows"] = list->RecordCount();
}
BENCHMARK(BM_Merge)->Apply(Sizes);

// --- The peer: the same sets and the same walk, look-ups through indexes, rows through prepared statements

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

class Sqlite {
 public:
  Sqlite() { sqlite3_open(":memory:", &connection_); }
  ~Sqlite() { sqlite3_close_v2(connection_); }
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;
  void Run(const std::string& sql) { sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr); }
  Statement Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection_, sql.c_str(), -1, &statement, nullptr);
    return Statement(statement);
  }

 private:
  sqlite3* connection_ = nullptr;
};

void CopyCell(const Recordset& set, int field, sqlite3_stmt* insert) {
  switch (set.Field(field).type) {
    case kInt:
      sqlite3_bind_int(insert, field + 1, set.Int32(field));
      return;
    case kTxt: {
      const std::string_view text = set.Text(field);
      sqlite3_bind_text(insert, field + 1, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
      return;
    }
    case FieldType::kTimestamp:
      sqlite3_bind_double(insert, field + 1, set.DateOf(field).Serial());
      return;
    default:
      sqlite3_bind_double(insert, field + 1, set.Double(field));
  }
}

void FillTable(Sqlite& sqlite, const std::string& table, Recordset& set) {
  std::string columns, marks;
  for (int field = 0; field < set.FieldCount(); ++field) {
    salerpt::Append(columns, field == 0 ? "" : ",", set.Field(field).name);
    salerpt::Append(marks, field == 0 ? "" : ",", "?");
  }
  sqlite.Run(salerpt::Join("create table ", table, "(", columns, "); begin"));
  const Statement insert = sqlite.Prepare(salerpt::Join("insert into ", table, " values(", marks, ")"));
  for (set.MoveFirst(); !set.Eof(); set.MoveNext()) {
    for (int field = 0; field < set.FieldCount(); ++field) CopyCell(set, field, insert.get());
    sqlite3_step(insert.get());
    sqlite3_reset(insert.get());
  }
  sqlite.Run("commit");
}

class SqliteMerge {
 public:
  explicit SqliteMerge(Sqlite& sqlite) : sqlite_(sqlite) {}

  void Run() {
    sqlite_.Run(
        "begin;"
        "create index receipts_line on receipts(FOrderInterID, FItemID, FOrderEntryID);"
        "create index receipts_task on receipts(FWorkInterID);"
        "create index tasks_line on tasks(FOrderInterID, FItemID, FOrderEntryID);"
        "create index issues_task on issues(FWorkInterID);"
        "create table list(FInterID, FTranType, FBillNo, FItemID, FDate, FCustNumber, FCustShortNumber, "
        "FCustName, FOrderBillNo, FNumber, FShortNumber, FName, FModel, FBOM, FUnitName, FQty, FPrice, "
        "FCUUnitName, FCUUnitQty, FCUUnitPrice, FAmount, FWorkBillNo, FWorkBillQty, FInBillNo, FBatchNo, "
        "FKFDate, FKFPeriod, FQty2, FPrice2, FCUUnitQty2, FCUUnitPrice2, FInAmount, FOutBillNo, FWorkShop, "
        "FNumber2, FShortNumber2, FName2, FModel2, FBatchNo2, FKFDate2, FKFPeriod2, FUnitName3, FQty3, "
        "FPrice3, FCUUnitName3, FCUUnitQty3, FCUUnitPrice3, FOutAmount, FSumSort, FAuxPropName)");
    Prepare();
    Walk();
    sqlite_.Run("commit");
  }
  void Forget() {
    sqlite_.Run(
        "drop table list; drop index receipts_line; drop index receipts_task; drop index tasks_line; "
        "drop index issues_task");
  }

 private:
  static constexpr std::size_t kMeasures = 10;
  using Sums = std::array<double, kMeasures>;
  // A measure of the list, by its number, and the column of the source that holds it.
  struct Measure {
    std::size_t number;
    int column;
  };
  static constexpr std::array<Measure, 3> kOfOrder{{{0, 14}, {1, 17}, {2, 19}}};
  static constexpr std::array<Measure, 3> kOfReceipt{{{4, 7}, {5, 9}, {6, 11}}};
  static constexpr std::array<Measure, 1> kOfTask{{{3, 4}}};
  static constexpr std::array<Measure, 3> kOfIssue{{{7, 13}, {8, 16}, {9, 18}}};

  void Prepare() {
    orders_ = sqlite_.Prepare(
        "select FOrderInterID, FTranType, FOrderBillNo, FItemID, FOrderBillNo, FDate, FCustNumber, "
        "FCustShortNumber, FCustName, FNumber, FShortNumber, FName, FModel, FUnitName, FQty, FPrice, "
        "FCUUnitName, FCUUnitQty, FCUUnitPrice, FAmount, FAuxPropName, FBom, 0, FOrderEntryID from orders "
        "order by rowid");
    add_order_ = sqlite_.Prepare(
        "insert into list(FInterID, FTranType, FBillNo, FItemID, FOrderBillNo, FDate, FCustNumber, "
        "FCustShortNumber, FCustName, FNumber, FShortNumber, FName, FModel, FUnitName, FQty, FPrice, "
        "FCUUnitName, FCUUnitQty, FCUUnitPrice, FAmount, FAuxPropName, FBOM, FSumSort) "
        "values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    const std::string receipts =
        "select FInStockInterID, FTranType, FInBillNo, FInBillNo, FBatchNo, FKFDate, FKFPeriod, FQty, "
        "FPrice, "
        "FCUUnitQty, FCUUnitPrice, FAmount, 0 from receipts where ";
    line_receipts_ =
        sqlite_.Prepare(receipts + "FOrderInterID=? and FItemID=? and FOrderEntryID=? order by rowid");
    task_receipts_ = sqlite_.Prepare(receipts + "FWorkInterID=? order by rowid");
    add_receipt_ = sqlite_.Prepare(
        "insert into list(FInterID, FTranType, FBillNo, FInBillNo, FBatchNo, FKFDate, FKFPeriod, FQty2, "
        "FPrice2, "
        "FCUUnitQty2, FCUUnitPrice2, FInAmount, FSumSort) values(?,?,?,?,?,?,?,?,?,?,?,?,?)");
    tasks_ = sqlite_.Prepare(
        "select FWorkInterID, FTranType, FWorkBillNo, FWorkBillNo, FWorkBillQty, 0 from tasks where "
        "FOrderInterID=? and FItemID=? and FOrderEntryID=? order by rowid");
    add_task_ = sqlite_.Prepare(
        "insert into list(FInterID, FTranType, FBillNo, FWorkBillNo, FWorkBillQty, FSumSort) "
        "values(?,?,?,?,?,?)");
    issues_ = sqlite_.Prepare(
        "select FOutStockInterID, FTranType, FOutBillNo, FOutBillNo, FWorkShop, FNumber, FShortNumber, "
        "FName, "
        "FModel, FBatchNo, FKFDate, FKFPeriod, FUnitName, FQty, FPrice, FCUUnitName, FCUUnitQty, "
        "FCUUnitPrice, "
        "FAmount, 0 from issues where FWorkInterID=? order by rowid");
    add_issue_ = sqlite_.Prepare(
        "insert into list(FInterID, FTranType, FBillNo, FOutBillNo, FWorkShop, FNumber2, FShortNumber2, "
        "FName2, "
        "FModel2, FBatchNo2, FKFDate2, FKFPeriod2, FUnitName3, FQty3, FPrice3, FCUUnitName3, FCUUnitQty3, "
        "FCUUnitPrice3, FOutAmount, FSumSort) values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    add_sums_ = sqlite_.Prepare(
        "insert into list(FInterID, FItemID, FName, FOrderBillNo, FSumSort, FQty, FCUUnitQty, FAmount, "
        "FWorkBillQty, FQty2, FCUUnitQty2, FInAmount, FQty3, FCUUnitQty3, FOutAmount) "
        "values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  }

  void Walk() {
    sqlite3_stmt* from = orders_.get();
    for (bool is_first = true; sqlite3_step(from) == SQLITE_ROW; is_first = false) {
      const int order = sqlite3_column_int(from, 0);
      const int item = sqlite3_column_int(from, 3);
      if (is_first) {
        order_ = order;
        item_ = item;
      }
      if (order != order_) {
        CloseItem();
        CloseOrder();
      } else if (item != item_) {
        CloseItem();
      }
      order_ = order;
      item_ = item;
      AddRow(from, add_order_.get(), kOfOrder);
      const std::array line{order_, item_, sqlite3_column_int(from, 23)};
      Pour(line_receipts_.get(), line, add_receipt_.get(), kOfReceipt);
      PourTasks(line);
      name_ = reinterpret_cast<const char*>(sqlite3_column_text(from, 11));
      bill_no_ = reinterpret_cast<const char*>(sqlite3_column_text(from, 2));
    }
    CloseItem();
    CloseOrder();
    AddSums("", "合计", 101, total_);
  }

  static void Bind(sqlite3_stmt* select, std::span<const int> key) {
    sqlite3_reset(select);
    for (std::size_t i = 0; i < key.size(); ++i) sqlite3_bind_int(select, static_cast<int>(i) + 1, key[i]);
  }

  void Pour(sqlite3_stmt* select, std::span<const int> key, sqlite3_stmt* insert,
            std::span<const Measure> measures) {
    Bind(select, key);
    while (sqlite3_step(select) == SQLITE_ROW) AddRow(select, insert, measures);
  }

  void PourTasks(std::span<const int> line) {
    Bind(tasks_.get(), line);
    while (sqlite3_step(tasks_.get()) == SQLITE_ROW) {
      AddRow(tasks_.get(), add_task_.get(), kOfTask);
      const std::array task{sqlite3_column_int(tasks_.get(), 0)};
      Pour(task_receipts_.get(), task, add_receipt_.get(), kOfReceipt);
      Pour(issues_.get(), task, add_issue_.get(), kOfIssue);
    }
  }

  void AddRow(sqlite3_stmt* from, sqlite3_stmt* insert, std::span<const Measure> measures) {
    const int columns = sqlite3_bind_parameter_count(insert);
    for (int i = 0; i < columns; ++i) sqlite3_bind_value(insert, i + 1, sqlite3_column_value(from, i));
    sqlite3_step(insert);
    sqlite3_reset(insert);
    for (const Measure& measure : measures) {
      const double value = sqlite3_column_double(from, measure.column);
      item_sums_[measure.number] += value;
      order_sums_[measure.number] += value;
    }
  }

  void CloseItem() {
    AddSums(name_ + "(小计)", "", 102, item_sums_);
    item_sums_ = {};
  }
  void CloseOrder() {
    AddSums("", bill_no_ + "(小计)", 102, order_sums_);
    for (std::size_t i = 0; i < kMeasures; ++i) total_[i] += order_sums_[i];
    order_sums_ = {};
  }
  void AddSums(const std::string& name, const std::string& bill_no, int sum_sort, const Sums& sums) {
    sqlite3_stmt* insert = add_sums_.get();
    sqlite3_bind_int(insert, 1, order_);
    sqlite3_bind_int(insert, 2, item_);
    sqlite3_bind_text(insert, 3, name.c_str(), -1, SQLITE_STATIC);
    sqlite3_bind_text(insert, 4, bill_no.c_str(), -1, SQLITE_STATIC);
    sqlite3_bind_int(insert, 5, sum_sort);
    for (std::size_t i = 0; i < kMeasures; ++i) sqlite3_bind_double(insert, static_cast<int>(i) + 6, sums[i]);
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }

  Sqlite& sqlite_;
  Statement orders_, line_receipts_, task_receipts_, tasks_, issues_;
  Statement add_order_, add_receipt_, add_task_, add_issue_, add_sums_;
  int order_ = 0;
  int item_ = 0;
  std::string name_, bill_no_;
  Sums item_sums_{}, order_sums_{}, total_{};
};

Outcome OutcomeOf(Sqlite& sqlite) {
  const Statement select = sqlite.Prepare(
      "select (select count(*) from list), FAmount, FInAmount, FOutAmount from list where FSumSort=101");
  sqlite3_step(select.get());
  return {sqlite3_column_int64(select.get(), 0), sqlite3_column_double(select.get(), 1),
          sqlite3_column_double(select.get(), 2), sqlite3_column_double(select.get(), 3)};
}

void BM_PeerSqliteMerge(benchmark::State& state) {
  const auto lines = static_cast<std::int32_t>(state.range(0));
  const auto order = static_cast<RowOrder>(state.range(1));
  Sqlite sqlite;
  FillTable(sqlite, "orders", *MakeOrders(lines));
  FillTable(sqlite, "tasks", *MakeTasks(lines, order));
  FillTable(sqlite, "receipts", *MakeReceipts(lines, order));
  FillTable(sqlite, "issues", *MakeIssues(lines, order));
  for (auto _ : state) {
    SqliteMerge merge(sqlite);
    merge.Run();
    state.PauseTiming();
    if (OutcomeOf(sqlite) != ExpectedOutcome(lines)) {
      state.SkipWithError("the peer did not give the rows and the total that it should");
    }
    merge.Forget();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_PeerSqliteMerge)->Apply(Sizes);

}  // namespace
