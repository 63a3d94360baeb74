#include "reports/order/rpt192_merge.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "reports/order/rpt192_list.h"
#include "runtime/error.h"
#include "runtime/mparse.h"
#include "runtime/text.h"

namespace salerpt {
namespace tracking {
namespace {

// --- Sums

constexpr std::array<Column, 10> kMeasures{kQty,        kCUUnitQty, kAmount, kWorkBillQty, kQty2,
                                           kCUUnitQty2, kInAmount,  kQty3,   kCUUnitQty3,  kOutAmount};

// One number for each column of the list; those of the measures are in use.
class Sums {
 public:
  void Add(Column measure, double value) { values_[measure] += value; }
  void Add(const Sums& other) {
    for (const Column measure : kMeasures) values_[measure] += other.values_[measure];
  }
  void Write(Recordset& list) const {
    for (const Column measure : kMeasures) list.SetDouble(measure, values_[measure]);
  }

 private:
  std::array<double, kColumnCount> values_{};
};

// --- Sources

// A set of the middle tier, searched through its row filter.
class Source {
 public:
  Source(RecordsetRef rows, std::string_view name) : rows_(std::move(rows)) {
    if (!rows_) {
      throw RuntimeError(error_number::kObjectNotSet, "ORVMSaleRpt.Data:GetRpt192Data",
                         Join("GetRpt192Data gave no recordset ", name));
    }
    is_empty_ = rows_->RecordCount() == 0;
    if (!is_empty_) rows_->MoveFirst();
  }

  // The place of a field. A set without rows is never read, and need not have any.
  [[nodiscard]] int FieldOf(std::string_view name) const { return is_empty_ ? 0 : rows_->FieldIndex(name); }
  // Goes to the first row that passes.
  void Find(std::string_view criteria) {
    if (!is_empty_) rows_->SetFilter(criteria);
  }
  [[nodiscard]] bool IsEmpty() const { return is_empty_; }
  [[nodiscard]] bool AtEnd() const { return is_empty_ || rows_->Eof(); }
  void Next() { rows_->MoveNext(); }
  [[nodiscard]] const Recordset& Rows() const { return *rows_; }

 private:
  RecordsetRef rows_;
  bool is_empty_ = true;
};

// A set that comes a second time may still have the filter of the first.
RecordsetRef Unfiltered(const RecordsetRef& rows) {
  if (rows) rows->SetFilter("");
  return rows;
}

// Fields that go over as they are, nulls included.
class WholeField {
 public:
  WholeField(const Source& source, std::string_view name) : field_(source.FieldOf(name)) {}
  void Copy(const Recordset& from, Recordset& list, Column column) const {
    if (!from.IsNull(field_)) list.SetInt32(column, from.Int32(field_));
  }
  // Raises on a null.
  [[nodiscard]] std::int32_t Read(const Recordset& from) const { return from.Int32(field_); }

 private:
  int field_;
};

class DateField {
 public:
  DateField(const Source& source, std::string_view name) : field_(source.FieldOf(name)) {}
  void Copy(const Recordset& from, Recordset& list, Column column) const {
    if (!from.IsNull(field_)) list.SetDate(column, from.DateOf(field_));
  }

 private:
  int field_;
};

class NumberField {
 public:
  NumberField(const Source& source, std::string_view name) : field_(source.FieldOf(name)) {}
  void Copy(const Recordset& from, Recordset& list, Column column) const {
    if (!from.IsNull(field_)) list.SetDouble(column, from.Double(field_));
  }
  [[nodiscard]] double ReadOrZero(const Recordset& from) const {
    return from.IsNull(field_) ? 0 : from.Double(field_);
  }
  // Raises on a null.
  [[nodiscard]] double Read(const Recordset& from) const { return from.Double(field_); }

 private:
  int field_;
};

// A field whose value of any kind is read as text: shelf-life dates come as dates or as texts.
class TextField {
 public:
  TextField(const Source& source, std::string_view name)
      : field_(source.FieldOf(name)),
        is_text_(!source.IsEmpty() && source.Rows().Field(field_).type == FieldType::kVarChar) {}
  void Copy(const Recordset& from, Recordset& list, Column column) {
    if (!from.IsNull(field_)) list.SetText(column, Read(from));
  }
  // A null is the empty text. The view lives until the source moves or the next read.
  std::string_view ReadOrEmpty(const Recordset& from) {
    return from.IsNull(field_) ? std::string_view() : Read(from);
  }

 private:
  std::string_view Read(const Recordset& from) {
    if (is_text_) return from.Text(field_);
    return text_ = from.Value(field_).ToText();
  }

  int field_;
  bool is_text_;
  std::string text_;
};

// --- The fields of the sources, found once

struct OrderFields {
  explicit OrderFields(const Source& source)
      : inter_id(source, "FOrderInterID"),
        entry_id(source, "FOrderEntryID"),
        item_id(source, "FItemID"),
        tran_type(source, "FTranType"),
        date(source, "FDate"),
        qty(source, "FQty"),
        price(source, "FPrice"),
        cu_unit_qty(source, "FCUUnitQty"),
        cu_unit_price(source, "FCUUnitPrice"),
        amount(source, "FAmount"),
        bill_no(source, "FOrderBillNo"),
        cust_number(source, "FCustNumber"),
        cust_short_number(source, "FCustShortNumber"),
        cust_name(source, "FCustName"),
        number(source, "FNumber"),
        short_number(source, "FShortNumber"),
        name(source, "FName"),
        model(source, "FModel"),
        bom(source, "FBom"),
        unit_name(source, "FUnitName"),
        cu_unit_name(source, "FCUUnitName"),
        aux_prop_name(source, "FAuxPropName") {}

  WholeField inter_id, entry_id, item_id, tran_type;
  DateField date;
  NumberField qty, price, cu_unit_qty, cu_unit_price, amount;
  TextField bill_no, cust_number, cust_short_number, cust_name, number, short_number, name, model, bom,
      unit_name, cu_unit_name, aux_prop_name;
};

struct ReceiptFields {
  explicit ReceiptFields(const Source& source)
      : inter_id(source, "FInStockInterID"),
        tran_type(source, "FTranType"),
        kf_period(source, "FKFPeriod"),
        qty(source, "FQty"),
        price(source, "FPrice"),
        cu_unit_qty(source, "FCUUnitQty"),
        cu_unit_price(source, "FCUUnitPrice"),
        amount(source, "FAmount"),
        bill_no(source, "FInBillNo"),
        batch_no(source, "FBatchNo"),
        kf_date(source, "FKFDate") {}

  WholeField inter_id, tran_type, kf_period;
  NumberField qty, price, cu_unit_qty, cu_unit_price, amount;
  TextField bill_no, batch_no, kf_date;
};

struct TaskFields {
  explicit TaskFields(const Source& source)
      : inter_id(source, "FWorkInterID"),
        tran_type(source, "FTranType"),
        qty(source, "FWorkBillQty"),
        bill_no(source, "FWorkBillNo") {}

  WholeField inter_id, tran_type;
  NumberField qty;
  TextField bill_no;
};

struct IssueFields {
  explicit IssueFields(const Source& source)
      : inter_id(source, "FOutStockInterID"),
        tran_type(source, "FTranType"),
        kf_period(source, "FKFPeriod"),
        qty(source, "FQty"),
        price(source, "FPrice"),
        cu_unit_qty(source, "FCUUnitQty"),
        cu_unit_price(source, "FCUUnitPrice"),
        amount(source, "FAmount"),
        bill_no(source, "FOutBillNo"),
        work_shop(source, "FWorkShop"),
        number(source, "FNumber"),
        short_number(source, "FShortNumber"),
        name(source, "FName"),
        model(source, "FModel"),
        batch_no(source, "FBatchNo"),
        kf_date(source, "FKFDate"),
        unit_name(source, "FUnitName"),
        cu_unit_name(source, "FCUUnitName") {}

  WholeField inter_id, tran_type, kf_period;
  NumberField qty, price, cu_unit_qty, cu_unit_price, amount;
  TextField bill_no, work_shop, number, short_number, name, model, batch_no, kf_date, unit_name, cu_unit_name;
};

// --- The merge

class TrackingMerge {
 public:
  explicit TrackingMerge(const TrackingSets& sets)
      : orders_(sets.orders, "rsOrder"),
        tasks_(Unfiltered(sets.tasks), "rsWorkBill"),
        receipts_(Unfiltered(sets.receipts), "rsInStock"),
        issues_(Unfiltered(sets.issues), "rsOutStock") {}

  // For orders that have a line.
  void Run(Recordset& list) {
    const Recordset& from = orders_.Rows();
    TakeGroup(from);
    for (; !orders_.AtEnd(); orders_.Next()) {
      if (order_.inter_id.Read(from) != current_order_) {
        CloseItem(list);
        CloseOrder(list);
        TakeGroup(from);
      } else if (order_.item_id.Read(from) != current_item_) {
        CloseItem(list);
        TakeGroup(from);
      }
      AddOrderLine(from, list);
      const int entry = order_.entry_id.Read(from);
      line_key_.clear();
      Append(line_key_, "FOrderInterID=", current_order_, " and FItemID=", current_item_,
             " and FOrderEntryID=", entry);
      AddReceipts(line_key_, list);
      AddTasks(list);
      current_name_ = order_.name.ReadOrEmpty(from);
      current_bill_no_ = order_.bill_no.ReadOrEmpty(from);
    }
    CloseItem(list);
    CloseOrder(list);
    AddTotal(list);
  }

 private:
  void TakeGroup(const Recordset& from) {
    current_order_ = order_.inter_id.Read(from);
    current_item_ = order_.item_id.Read(from);
  }

  void AddOrderLine(const Recordset& from, Recordset& list) {
    list.AddNew();
    list.SetInt32(kInterId, current_order_);
    order_.tran_type.Copy(from, list, kTranType);
    order_.bill_no.Copy(from, list, kBillNo);
    list.SetInt32(kItemId, current_item_);
    order_.bill_no.Copy(from, list, kOrderBillNo);
    order_.date.Copy(from, list, kDate);
    list.SetText(kCustNumber, order_.cust_number.ReadOrEmpty(from));
    list.SetText(kCustShortNumber, order_.cust_short_number.ReadOrEmpty(from));
    list.SetText(kCustName, order_.cust_name.ReadOrEmpty(from));
    order_.number.Copy(from, list, kNumber);
    order_.short_number.Copy(from, list, kShortNumber);
    order_.name.Copy(from, list, kName);
    list.SetText(kModel, order_.model.ReadOrEmpty(from));
    list.SetText(kBom, order_.bom.ReadOrEmpty(from));
    order_.unit_name.Copy(from, list, kUnitName);
    AddMeasure(list, kQty, order_.qty.Read(from));
    order_.price.Copy(from, list, kPrice);
    order_.cu_unit_name.Copy(from, list, kCUUnitName);
    AddMeasure(list, kCUUnitQty, order_.cu_unit_qty.Read(from));
    order_.cu_unit_price.Copy(from, list, kCUUnitPrice);
    AddMeasure(list, kAmount, order_.amount.Read(from));
    list.SetText(kAuxPropName, order_.aux_prop_name.ReadOrEmpty(from));
    list.SetInt32(kSumSort, kDetail);
    list.Update();
  }

  // Kept: a receipt of a task that also names the order line stands here a second time, since the line and
  // the task each tell what was received for them.
  void AddTasks(Recordset& list) {
    const Recordset& from = tasks_.Rows();
    for (tasks_.Find(line_key_); !tasks_.AtEnd(); tasks_.Next()) {
      AddTask(from, list);
      task_key_.clear();
      Append(task_key_, "FWorkInterID=", task_.inter_id.Read(from));
      AddReceipts(task_key_, list);
      AddIssues(task_key_, list);
    }
  }

  void AddTask(const Recordset& from, Recordset& list) {
    list.AddNew();
    list.SetInt32(kInterId, task_.inter_id.Read(from));
    task_.tran_type.Copy(from, list, kTranType);
    task_.bill_no.Copy(from, list, kBillNo);
    task_.bill_no.Copy(from, list, kWorkBillNo);
    AddMeasure(list, kWorkBillQty, task_.qty.Read(from));
    list.SetInt32(kSumSort, kDetail);
    list.Update();
  }

  void AddReceipts(std::string_view key, Recordset& list) {
    const Recordset& from = receipts_.Rows();
    for (receipts_.Find(key); !receipts_.AtEnd(); receipts_.Next()) {
      list.AddNew();
      receipt_.inter_id.Copy(from, list, kInterId);
      receipt_.tran_type.Copy(from, list, kTranType);
      list.SetText(kBillNo, receipt_.bill_no.ReadOrEmpty(from));
      list.SetText(kInBillNo, receipt_.bill_no.ReadOrEmpty(from));
      list.SetText(kBatchNo, receipt_.batch_no.ReadOrEmpty(from));
      list.SetText(kKFDate, receipt_.kf_date.ReadOrEmpty(from));
      receipt_.kf_period.Copy(from, list, kKFPeriod);
      AddMeasure(list, kQty2, receipt_.qty.Read(from));
      receipt_.price.Copy(from, list, kPrice2);
      AddMeasure(list, kCUUnitQty2, receipt_.cu_unit_qty.Read(from));
      receipt_.cu_unit_price.Copy(from, list, kCUUnitPrice2);
      AddMeasure(list, kInAmount, receipt_.amount.Read(from));
      list.SetInt32(kSumSort, kDetail);
      list.Update();
    }
  }

  void AddIssues(std::string_view key, Recordset& list) {
    const Recordset& from = issues_.Rows();
    for (issues_.Find(key); !issues_.AtEnd(); issues_.Next()) {
      list.AddNew();
      issue_.inter_id.Copy(from, list, kInterId);
      issue_.tran_type.Copy(from, list, kTranType);
      list.SetText(kBillNo, issue_.bill_no.ReadOrEmpty(from));
      list.SetText(kOutBillNo, issue_.bill_no.ReadOrEmpty(from));
      list.SetText(kWorkShop, issue_.work_shop.ReadOrEmpty(from));
      issue_.number.Copy(from, list, kNumber2);
      issue_.short_number.Copy(from, list, kShortNumber2);
      issue_.name.Copy(from, list, kName2);
      list.SetText(kModel2, issue_.model.ReadOrEmpty(from));
      list.SetText(kBatchNo2, issue_.batch_no.ReadOrEmpty(from));
      list.SetText(kKFDate2, issue_.kf_date.ReadOrEmpty(from));
      issue_.kf_period.Copy(from, list, kKFPeriod2);
      issue_.unit_name.Copy(from, list, kUnitName3);
      AddMeasure(list, kQty3, issue_.qty.Read(from));
      issue_.price.Copy(from, list, kPrice3);
      list.SetText(kCUUnitName3, issue_.cu_unit_name.ReadOrEmpty(from));
      AddMeasure(list, kCUUnitQty3, issue_.cu_unit_qty.ReadOrZero(from));
      list.SetDouble(kCUUnitPrice3, issue_.cu_unit_price.ReadOrZero(from));
      AddMeasure(list, kOutAmount, issue_.amount.Read(from));
      list.SetInt32(kSumSort, kDetail);
      list.Update();
    }
  }

  // A measure of a detail row counts for its item and its order; the total grows by whole orders.
  void AddMeasure(Recordset& list, Column measure, double value) {
    list.SetDouble(measure, value);
    item_sums_.Add(measure, value);
    order_sums_.Add(measure, value);
  }

  void CloseItem(Recordset& list) {
    AddSumRow(list, kName, Join(current_name_, subtotal_mark_), item_sums_, kSubtotal);
    item_sums_ = {};
  }

  void CloseOrder(Recordset& list) {
    AddSumRow(list, kOrderBillNo, Join(current_bill_no_, subtotal_mark_), order_sums_, kSubtotal);
    total_.Add(order_sums_);
    order_sums_ = {};
  }

  // Carries the ids of the last order and item.
  void AddTotal(Recordset& list) { AddSumRow(list, kOrderBillNo, ResText("合计"), total_, kTotal); }

  void AddSumRow(Recordset& list, Column label_column, std::string_view label, const Sums& sums,
                 SumSort sum_sort) {
    list.AddNew();
    list.SetInt32(kInterId, current_order_);
    list.SetInt32(kItemId, current_item_);
    list.SetText(label_column, label);
    sums.Write(list);
    list.SetInt32(kSumSort, sum_sort);
    list.Update();
  }

  Source orders_, tasks_, receipts_, issues_;
  OrderFields order_{orders_};
  TaskFields task_{tasks_};
  ReceiptFields receipt_{receipts_};
  IssueFields issue_{issues_};

  std::int32_t current_order_ = 0;
  std::int32_t current_item_ = 0;
  std::string current_name_, current_bill_no_;
  std::string line_key_, task_key_;

  const std::string subtotal_mark_ = Join("(", ResText("小计"), ")");
  Sums item_sums_, order_sums_, total_;
};

}  // namespace
}  // namespace tracking

RecordsetRef MergeTracking(const TrackingSets& sets) {
  RecordsetRef list = tracking::OpenList();
  if (!sets.orders) {
    throw RuntimeError(error_number::kObjectNotSet, "ORVMSaleRpt.Data:GetRpt192Data",
                       "GetRpt192Data gave no recordset rsOrder");
  }
  if (sets.orders->RecordCount() == 0) return list;
  tracking::TrackingMerge(sets).Run(*list);
  list->MoveFirst();
  return list;
}

}  // namespace salerpt
