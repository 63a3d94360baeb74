#include "tests/suite/middletier/report_rows.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "dialogs/unattended.h"
#include "reports/reports.h"

namespace salerpt::middletier {
namespace {

// A binary double lies a little above or below its decimal half.
constexpr double kBinary = 1e-9;

void HalfUp(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) {
    sqlite3_result_null(context);
    return;
  }
  const double value = sqlite3_value_double(arguments[0]);
  const double unit = std::pow(10.0, sqlite3_value_int(arguments[1]));
  sqlite3_result_double(context,
                        std::copysign(std::floor((std::abs(value) + kBinary) * unit + 0.5) / unit, value));
}

std::string TextAt(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return text == nullptr ? "" : text;
}

// A set that knows half_up.
struct RoundingSet : GeneratedSet {
  RoundingSet() : GeneratedSet(11, 4000) {
    sqlite3_create_function(Get()->Connection(), "half_up", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                            HalfUp, nullptr, nullptr);
    Run("CREATE TABLE class_at(item_class INT, code TEXT, level INT, number TEXT, name TEXT,"
        " PRIMARY KEY(item_class, code, level)) WITHOUT ROWID");
    Run("INSERT INTO class_at SELECT i.FItemClassID,i.FNumber,t.FLevel,t.FNumber,t.FName FROM t_Item i JOIN "
        "t_Item t"
        " ON t.FItemClassID=i.FItemClassID AND t.FDetail=0 AND i.FNumber LIKE t.FNumber||'.%' WHERE "
        "i.FDetail=1");
    Run("UPDATE t_ICItem SET FCUUnitID=FUnitID WHERE FItemID%3=0");
    Run("UPDATE ICSale SET FDeptID=0,FEmpID=0 WHERE FInterID%23=0");
    Run("UPDATE ICSale SET FCustID=0 WHERE FInterID%37=0");
    Run("UPDATE ICStockBill SET FSupplyID=0 WHERE FTranType=21 AND FInterID%37=0");
  }
};

}  // namespace

const GeneratedSet& ReportRows::Set() {
  static const RoundingSet set;
  return set;
}

ReportRows::ReportRows(const Login& login) {
  RegisterReports(runtime_);
  RegisterMiddleTier(runtime_, Set().Get(), login);
}

ObjectRef ReportRows::RunReport(std::string_view prog_id, std::string_view dialog_name,
                                const std::vector<Dictionary::Entry>& chosen) {
  ObjectRef report = CreateObject(prog_id);
  SetMember(report, "Filter", ConfirmedFilter(dialog_name, chosen));
  Call(report, "GetReportData");
  const auto result = As<Dictionary>(GetMember(report, "Result"));
  EXPECT_TRUE(result->Get("OK").ToBoolean()) << result->Get("Error").TextOrEmpty();
  return report;
}

RecordsetRef ReportRows::RowsOf(std::string_view prog_id, std::string_view dialog,
                                const std::vector<Dictionary::Entry>& chosen) {
  return As<Recordset>(GetMember(RunReport(prog_id, dialog, chosen), "Rs"));
}

std::vector<PlainRow> ReportRows::Plain(const std::string& sql, int keys) {
  sqlite3* connection = Set().Get()->Connection();
  sqlite3_stmt* statement = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
      << sqlite3_errmsg(connection) << "\n"
      << sql;
  std::vector<PlainRow> rows;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    PlainRow row;
    for (int i = 0; i < keys; ++i) row.key += (i > 0 ? "|" : "") + TextAt(statement, i);
    for (int i = keys; i < sqlite3_column_count(statement); ++i)
      row.numbers.push_back(sqlite3_column_double(statement, i));
    rows.push_back(std::move(row));
  }
  sqlite3_finalize(statement);
  return rows;
}

std::vector<PlainRow> Pick(const RecordsetRef& rows, std::int32_t from, std::int32_t to,
                           const std::vector<const char*>& keys, const std::vector<const char*>& numbers) {
  std::vector<int> key_fields;
  std::vector<int> number_fields;
  for (const char* field : keys) key_fields.push_back(rows->FieldIndex(field));
  for (const char* field : numbers) number_fields.push_back(rows->FieldIndex(field));
  const int sum_sort = rows->FieldIndex("FSumSort");
  std::vector<PlainRow> picked;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    if (rows->Int32(sum_sort) < from || rows->Int32(sum_sort) > to) continue;
    PlainRow row;
    for (std::size_t i = 0; i < key_fields.size(); ++i)
      row.key += (i > 0 ? "|" : "") + rows->Value(key_fields[i]).TextOrEmpty();
    for (const int field : number_fields) {
      const Variant value = rows->Value(field);
      row.numbers.push_back(value.IsNull() ? 0 : value.ToDouble());
    }
    picked.push_back(std::move(row));
  }
  return picked;
}

namespace {

std::vector<std::string> Fields(const std::string& key) {
  std::vector<std::string> fields(1);
  for (const char c : key) {
    if (c == '|') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

std::string Key(const std::vector<std::string>& fields, std::int32_t code) {
  std::string key;
  for (const std::string& field : fields) key += field + "|";
  return key + std::to_string(code);
}

// The sum of a block whose last detail has these fields.
PlainRow TotalRow(std::vector<std::string> fields, const Group& group, const std::vector<double>& sums) {
  for (std::size_t i = group.fields; i < fields.size(); ++i) fields[i].clear();
  for (const Label& label : group.labels) {
    if (label.field >= group.fields || !fields[label.field].empty()) fields[label.field] += label.text;
  }
  return {Key(fields, group.code), sums};
}

void Add(std::vector<double>& sums, const std::vector<double>& numbers) {
  sums.resize(numbers.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) sums[i] += numbers[i];
}

}  // namespace

std::vector<PlainRow> RolledUp(const std::vector<PlainRow>& details, const std::vector<Group>& groups,
                               const Group& total) {
  std::vector<PlainRow> rows;
  std::vector<std::vector<double>> sums(groups.size());
  std::vector<double> all;
  std::vector<std::string> last;
  const auto close = [&](std::size_t group) {
    rows.push_back(TotalRow(last, groups[group], sums[group]));
    sums[group].clear();
  };
  for (const PlainRow& detail : details) {
    const std::vector<std::string> fields = Fields(detail.key);
    for (std::size_t g = groups.size(); g-- > 0 && !last.empty();) {
      const auto end = fields.begin() + static_cast<std::ptrdiff_t>(groups[g].fields);
      if (!std::equal(fields.begin(), end, last.begin())) close(g);
    }
    rows.push_back({Key(fields, 0), detail.numbers});
    for (std::vector<double>& sum : sums) Add(sum, detail.numbers);
    Add(all, detail.numbers);
    last = fields;
  }
  if (last.empty()) return rows;
  for (std::size_t g = groups.size(); g-- > 0;) close(g);
  rows.push_back(TotalRow(last, total, all));
  return rows;
}

std::vector<PlainRow> InOrderOf(std::vector<PlainRow> details, const std::vector<PlainRow>& order) {
  std::map<std::string, std::size_t> places;
  for (const PlainRow& row : order) places.emplace(row.key, places.size());
  const auto place = [&](const PlainRow& row) {
    const auto found = places.find(row.key);
    return found == places.end() ? places.size() : found->second;
  };
  std::ranges::stable_sort(details, {}, place);
  return details;
}

std::vector<PlainRow> Sorted(std::vector<PlainRow> rows) {
  std::ranges::stable_sort(rows, {}, &PlainRow::key);
  return rows;
}

void ExpectRows(const std::vector<PlainRow>& rows, const std::vector<PlainRow>& expected, double tolerance) {
  for (std::size_t i = 0; i < std::min(rows.size(), expected.size()); ++i) {
    ASSERT_EQ(rows[i].key, expected[i].key) << "row " << i;
    ASSERT_EQ(rows[i].numbers.size(), expected[i].numbers.size());
    for (std::size_t k = 0; k < rows[i].numbers.size(); ++k)
      EXPECT_NEAR(rows[i].numbers[k], expected[i].numbers[k], tolerance) << rows[i].key << ", number " << k;
  }
  EXPECT_EQ(rows.size(), expected.size());
}

}  // namespace salerpt::middletier
