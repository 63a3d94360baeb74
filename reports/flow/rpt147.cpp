#include "reports/flow/rpt147.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/report_header.h"

namespace salerpt {
namespace {

constexpr std::int32_t kDetail = 0;
constexpr std::int32_t kPeriodTotal = 101;

// --- The rows: fields in order, and the column of each that the host sees

struct ListField {
  std::string_view name;
  FieldType type;
  std::int32_t size;
  std::string_view caption;  // empty: no column
  ColumnType column_type = ColumnType::kText;
};

constexpr std::array<ListField, 22> kFields = {{
    {"FYear", FieldType::kSmallInt, 0, ""},
    {"FPeriod", FieldType::kSmallInt, 0, ""},
    {"FPeriodName", FieldType::kVarChar, 30, "会计期间$"},
    {"FInterID", FieldType::kInteger, 0, ""},
    {"FEntryID", FieldType::kInteger, 0, ""},
    {"FDate", FieldType::kDate, 0, "日期$"},
    {"FVoucherNo", FieldType::kVarChar, 50, "凭证字号$"},
    {"FNote", FieldType::kVarChar, 355, "摘要$"},
    {"FBillNo", FieldType::kVarChar, 50, "发票号码$"},
    {"FTranType", FieldType::kInteger, 0, ""},
    {"FItemID", FieldType::kInteger, 0, ""},
    // Of the two codes the host sees the one in use.
    {"FNumber", FieldType::kVarChar, 255, "产品代码$"},
    {"FShortNumber", FieldType::kVarChar, 255, "产品代码$"},
    {"FName", FieldType::kVarChar, 255, "产品名称$"},
    {"FModel", FieldType::kVarChar, 255, "规格型号$"},
    {"FUnitName", FieldType::kVarChar, 255, "计量单位$"},
    {"FQtyDecimal", FieldType::kSmallInt, 0, ""},
    {"FPriceDecimal", FieldType::kSmallInt, 0, ""},
    {"FQty", FieldType::kDouble, 0, "销售数量$", ColumnType::kQuantity},
    {"FPrice", FieldType::kDouble, 0, "销售单价$", ColumnType::kPrice},
    {"FAmount", FieldType::kCurrency, 0, "销售收入$", ColumnType::kAmount},
    {"FSumSort", FieldType::kInteger, 0, ""},
}};

RecordsetRef OpenList(Vector& header) {
  const std::string_view hidden_code = Runtime::Current().gLongNumber ? "FShortNumber" : "FNumber";
  RecordsetRef rows = MakeRecordset();
  rows->SetCursorLocation(Recordset::kClientSide);
  for (const ListField& field : kFields) {
    rows->AppendField(field.name, field.type, field.size);
    if (field.caption.empty() || field.name == hidden_code) continue;
    AddHeader(header, ResText(field.caption), "", field.column_type, field.name, true);
  }
  rows->Open();
  return rows;
}

// --- One row. A null code, note, number or model reads as empty text and a null id as 0; a null in any other
// field fails the fetch. Kept so: a row without a name, a date or an amount is a fault of the data that must
// not pass unseen.

struct Line {
  std::int16_t year = 0;
  std::int16_t period = 0;
  std::int32_t inter_id = 0;
  std::int32_t entry_id = 0;
  // Nothing: 1900-01-01, which is written as a null.
  const Date* date = nullptr;
  std::string_view voucher_no, note, bill_no;
  std::int32_t tran_type = 0;
  std::int32_t item_id = 0;
  std::string_view number, short_number, name, model, unit_name;
  std::int32_t qty_decimal = 0;
  std::int32_t price_decimal = 0;
  double qty = 0;
  double price = 0;
  Currency amount;
  std::int32_t sum_sort = kDetail;
};

void AddDetailRow(Recordset& rows, std::string_view period_name, const Line& line) {
  rows.AddNew();
  rows.SetInt32(0, line.year);
  rows.SetInt32(1, line.period);
  rows.SetText(2, period_name);
  rows.SetInt32(3, line.inter_id);
  rows.SetInt32(4, line.entry_id);
  if (line.date != nullptr) rows.SetDate(5, *line.date);
  rows.SetText(6, line.voucher_no);
  rows.SetText(7, line.note);
  rows.SetText(8, line.bill_no);
  rows.SetInt32(9, line.tran_type);
  rows.SetInt32(10, line.item_id);
  rows.SetText(11, line.number);
  rows.SetText(12, line.short_number);
  rows.SetText(13, line.name);
  rows.SetText(14, line.model);
  rows.SetText(15, line.unit_name);
  rows.SetInt32(16, line.qty_decimal);
  rows.SetInt32(17, line.price_decimal);
  rows.SetDouble(18, line.qty);
  rows.SetDouble(19, line.price);
  rows.SetMoney(20, line.amount);
  rows.SetInt32(21, line.sum_sort);
  rows.Update();
}

// A field whose value of any kind is read as text.
class TextField {
 public:
  TextField(const Recordset& source, std::string_view name)
      : field_(source.FieldIndex(name)), is_text_(source.Field(field_).type == FieldType::kVarChar) {}

  // As by joining with empty text: a null is "". The view lives until the source moves or the next read.
  std::string_view ReadJoined(const Recordset& source) {
    return source.IsNull(field_) ? std::string_view() : Read(source);
  }
  // Raises on a null.
  std::string_view Read(const Recordset& source) {
    if (is_text_) return source.Text(field_);
    return text_ = source.Value(field_).ToText();
  }

 private:
  int field_;
  bool is_text_;
  std::string text_;
};

// The fields of the middle tier's rows, found once for each period.
class SourceRow {
 public:
  explicit SourceRow(const Recordset& source)
      : source_(source),
        qty_(source.FieldIndex("FQty")),
        amount_(source.FieldIndex("FAmount")),
        inter_id_(source.FieldIndex("FInterID")),
        entry_id_(source.FieldIndex("FEntryID")),
        date_(source.FieldIndex("FDate")),
        tran_type_(source.FieldIndex("FTranType")),
        item_id_(source.FieldIndex("FItemID")),
        qty_decimal_(source.FieldIndex("FQtyDecimal")),
        price_decimal_(source.FieldIndex("FPriceDecimal")),
        price_(source.FieldIndex("FPrice")),
        voucher_no_(source, "FVoucherNo"),
        note_(source, "FNote"),
        bill_no_(source, "FBillNo"),
        number_(source, "FNumber"),
        short_number_(source, "FShortNumber"),
        name_(source, "FName"),
        model_(source, "FModel"),
        unit_name_(source, "FUnitName") {}

  // Reads the current row. The texts of the line live until the source moves.
  void Read(Line& line) {
    line.qty = source_.Double(qty_);
    line.amount = source_.Money(amount_);
    line.inter_id = IdOrZero(inter_id_);
    line.entry_id = IdOrZero(entry_id_);
    const Date date = source_.DateOf(date_);
    // The day alone: the list shows no time.
    day_ = Date(std::floor(date.Serial()));
    line.date = date == kNoDate ? nullptr : &day_;
    line.voucher_no = voucher_no_.ReadJoined(source_);
    line.note = note_.ReadJoined(source_);
    line.bill_no = bill_no_.ReadJoined(source_);
    line.tran_type = IdOrZero(tran_type_);
    line.item_id = IdOrZero(item_id_);
    line.number = number_.ReadJoined(source_);
    line.short_number = short_number_.Read(source_);
    line.name = name_.Read(source_);
    line.model = model_.ReadJoined(source_);
    line.unit_name = unit_name_.Read(source_);
    line.qty_decimal = source_.Int32(qty_decimal_);
    line.price_decimal = source_.Int32(price_decimal_);
    line.price = source_.Double(price_);
  }

 private:
  static constexpr Date kNoDate{2.0};  // 1900-01-01

  [[nodiscard]] std::int32_t IdOrZero(int field) const {
    return source_.IsNull(field) ? 0 : source_.Int32(field);
  }

  const Recordset& source_;
  Date day_;
  int qty_, amount_, inter_id_, entry_id_, date_, tran_type_, item_id_, qty_decimal_, price_decimal_, price_;
  TextField voucher_no_, note_, bill_no_, number_, short_number_, name_, model_, unit_name_;
};

}  // namespace

// --- Title

void Rpt147::BuildTitle() {
  const Dictionary& filter = Conditions();
  title_ = std::make_shared<Vector>();
  const auto period = [&filter](std::string_view label, std::string_view year, std::string_view number) {
    return Join(ResText(label), FilterText(filter, year), ResText("年 第"), FilterText(filter, number),
                ResText("期"));
  };
  const auto range = [&filter](std::string_view label, std::string_view begin, std::string_view end,
                               std::string_view all) {
    return Join(ResText(label),
                RangeCaption(FilterText(filter, begin), FilterText(filter, end), ResText(all)));
  };
  AddTitle(*title_, period("起始期间：", "BYear", "BPeriod"), 0);
  AddTitle(*title_, period("截止期间：", "EYear", "EPeriod"), 1);
  AddTitle(*title_, range("产品代码范围：", "BItemNumber", "EItemNumber", "所有产品"), 2);
  AddTitle(*title_, range("业务员代码范围：", "BEmpNumber", "EEmpNumber", "所有业务员"), 3);
  AddTitle(*title_, range("部门代码范围：", "BDptNumber", "EDptNumber", "所有部门"), 4);
  AddTitle(*title_, range("客户代码范围：", "BCustNumber", "ECustNumber", "所有客户"), 5);
}

// --- Fetch

void Rpt147::OnActive() {
  RunGuarded([this] {
    Progress().SetMsg(ResText("正在连接中间层..."));
    const Dictionary& filter = Conditions();
    std::array<Variant, 4> periods = {FilterInt16(filter, "BYear"), FilterInt16(filter, "BPeriod"),
                                      FilterInt16(filter, "EYear"), FilterInt16(filter, "EPeriod")};
    GetRptList(periods);
  });
}

Variant Rpt147::GetRptList(Arguments arguments) {
  const std::int32_t periods_of_year = GetMaxPeriod();
  if (periods_of_year == 0) {
    // Without a calendar there is nothing to walk: rows and result stay as they are.
    UnloadProgress();
    return rs_;
  }
  RunFetch([&] {
    const Period begin{arguments[0].ToInt16(), arguments[1].ToInt16()};
    const Period end{arguments[2].ToInt16(), arguments[3].ToInt16()};
    FetchPeriods(begin, end, periods_of_year);
  });
  return rs_;
}

void Rpt147::FetchPeriods(Period begin, Period end, std::int32_t periods_of_year) {
  const DataRight right = RequestDataRight({{"t_Organization", "T4"}});
  Conditions().Set("DataRightFrom", right.from_text);
  Conditions().Set("DataRightWhere", right.where_text);

  header_ = std::make_shared<Vector>();
  rs_ = OpenList(*header_);
  const ObjectRef data = CreateObject("ORVMCaculateRpt.Data");
  Bar& bar = Progress();

  std::int32_t number = begin.number;
  for (std::int32_t year = begin.year; year <= end.year; ++year, number = 1) {
    // The calendar's last period ends the year, also where the last period asked for lies beyond it.
    for (;; ++number) {
      bar.HideProgBar();
      bar.SetMsg(Join(ResText("正在从服务器读取"), year, ResText("年第"), number, ResText("期数据...")));
      Conditions().Set("bLongNumber", Runtime::Current().gLongNumber);
      const Period period{static_cast<std::int16_t>(year), static_cast<std::int16_t>(number)};
      Variant year_argument = period.year;
      Variant period_argument = period.number;
      Variant filter = Filter();
      Variant time = 0.0;
      const RecordsetRef source = As<Recordset>(
          Call(data, "GetSaleData", GetPropsString(), year_argument, period_argument, filter, time));
      ReplaceFilter(filter);
      if (!source) {
        throw RuntimeError(error_number::kObjectNotSet, "ORVMCaculateRpt.Data:GetSaleData",
                           Join("GetSaleData gave no recordset for period ", year, ".", number));
      }
      if (source->RecordCount() > 0) PourPeriod(period, *source);
      if (number >= end.number && year == end.year) return;
      // A first period beyond the calendar is asked for all the same, and those up to the last one of its
      // year.
      if (number == periods_of_year || (number > periods_of_year && year < end.year)) break;
    }
  }
}

void Rpt147::PourPeriod(Period period, Recordset& source) {
  Bar& bar = Progress();
  bar.SetMsg(Join(ResText("正在汇总"), period.year, ResText("年第"), period.number, ResText("期数据...")));
  bar.ShowProgBar();
  bar.SetBarMaxValue(source.RecordCount());
  bar.SetBarMinValue(0);

  const std::string period_name = Join(period.year, ".", period.number);
  Line line;
  line.year = period.year;
  line.period = period.number;
  double sum_qty = 0;
  Currency sum_amount;
  std::int32_t done = 0;
  for (SourceRow row(source); !source.Eof(); source.MoveNext()) {
    row.Read(line);
    sum_qty += line.qty;
    sum_amount += line.amount;
    AddDetailRow(*rs_, period_name, line);
    bar.SetBarValue(++done);
  }

  const std::string note = ResText("本期合计:");
  Line total;
  total.year = period.year;
  total.period = period.number;
  total.note = note;
  total.qty_decimal = 4;
  total.price_decimal = 6;
  total.qty = sum_qty;
  total.price = sum_qty == 0 ? 0 : sum_amount.ToDouble() / sum_qty;
  total.amount = sum_amount;
  total.sum_sort = kPeriodTotal;
  AddDetailRow(*rs_, period_name, total);
  bar.SetBarValueWithMax();
}

}  // namespace salerpt
