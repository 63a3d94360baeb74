#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "runtime/dictionary.h"
#include "runtime/vector.h"
#include "suite/middletier/master_lists.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

constexpr std::int32_t kSalesOrders = 32;
constexpr std::int32_t kProductionTasks = 36;

// A field of a chosen row.
class RowField final : public Object {
 public:
  explicit RowField(Variant value) : value_(std::move(value)) {}
  [[nodiscard]] std::string_view ClassName() const override { return "ORVList.Field"; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    static constexpr std::array<Member<RowField>, 1> kMembers{{
        {"Value", InvokeKind::kGet, "() As Variant", [](RowField& self, Arguments) { return self.value_; }},
    }};
    return Dispatch<RowField>(*this, kMembers, member, kind, arguments);
  }

 private:
  Variant value_;
};

// A chosen row: its fields by name.
class ChosenRow final : public Object {
 public:
  // The current row of the set.
  explicit ChosenRow(const Recordset& rows) {
    for (int field = 0; field < rows.FieldCount(); ++field)
      values_.Set(rows.Field(field).name, rows.Value(field));
  }
  [[nodiscard]] std::string_view ClassName() const override { return "ORVList.Row"; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    static constexpr std::array<Member<ChosenRow>, 1> kMembers{{
        {"Item", InvokeKind::kGet, "(name As String) As Object",
         [](ChosenRow& self, Arguments name) { return self.Item(name[0].ToText()); }, 1},
    }};
    return Dispatch<ChosenRow>(*this, kMembers, member, kind, arguments);
  }

 private:
  [[nodiscard]] Variant Item(std::string_view name) const {
    if (values_.Lookup(name)) return std::make_shared<RowField>(values_.Get(name));
    throw RuntimeError(error_number::kNoSuchField, "ORVList.Row", Join("there is no field \"", name, "\""));
  }

  Dictionary values_;
};

// `ORVList.ICList`: the list control, for sales orders (list 32) and production tasks (list 36). A window
// marks rows with SelectFlag; where it marks none, the user is asked when it is to be known what he chose.
class BillList final : public SuiteObject<BillList> {
 public:
  static constexpr std::string_view kClassName = "ORVList.ICList";
  using SuiteObject::SuiteObject;

  // What the control is told. It lists by ListID, Filter and ROB; the rest is for the window's look and for
  // bills that are made from others, and is only kept.
  enum Setting : std::size_t {
    kLeft,
    kTop,
    kWidth,
    kHeight,
    kVisible,
    kISShowReport,
    kListShowStatus,
    kDestBillTransType,
    kListID,
    kTranType,
    kBaseInfo,
    kMultiSelect,
    kCanSelectMultiRow,
    kFilter,
    kLocalCnn,
    kSystemName,
    kROB,  // 1 blue bills, -1 red ones, 0 both
    kSettings
  };
  template <Setting kSetting>
  static Variant Let(BillList& self, Arguments arguments) {
    self.settings_[kSetting] = arguments[0];
    return {};
  }
  template <Setting kSetting>
  static Variant Get(BillList& self, Arguments /*arguments*/) {
    return self.settings_[kSetting];
  }

  // Reads the list; false for one that there is not.
  static Variant Load(BillList& self, Arguments /*arguments*/) {
    self.list_ = {};
    self.marked_.clear();
    self.has_asked_ = false;
    switch (self.settings_[kListID].ToInt32()) {
      case kSalesOrders:
        self.list_ = self.SalesOrders();
        return true;
      case kProductionTasks:
        self.list_ = self.ProductionTasks();
        return true;
      default:
        return false;
    }
  }

  static Variant IsOpened(BillList& self, Arguments /*arguments*/) { return self.list_.rows != nullptr; }

  static Variant GetListDes(BillList& self, Arguments /*arguments*/) {
    const auto description = std::make_shared<Dictionary>();
    description->Set("FName", self.list_.title);
    return description;
  }

  static Variant GetListFieldsDes(BillList& self, Arguments /*arguments*/) {
    const auto fields = std::make_shared<Vector>();
    for (const ShownList::Column& column : self.list_.columns) {
      const auto field = std::make_shared<Dictionary>();
      field->Set("FFieldName", column.field);
      field->Set("FCaption", column.caption);
      fields->Add(field);
    }
    return fields;
  }

  static Variant GetListRs(BillList& self, Arguments /*arguments*/) { return self.list_.rows; }

  // Marks a row, from 0: beside others where several may be marked, else in their place.
  static Variant SelectFlag(BillList& self, Arguments arguments) {
    const std::int32_t row = arguments[0].ToInt32();
    const std::int32_t count = self.list_.rows ? self.list_.rows->RecordCount() : 0;
    if (row < 0 || row >= count) {
      throw RuntimeError(error_number::kSubscript, "",
                         Join("row ", row, ": the list has ", count, " rows, counted from 0"));
    }
    const bool several =
        self.settings_[kMultiSelect].ToBoolean() || self.settings_[kCanSelectMultiRow].ToBoolean();
    if (!several) self.marked_.clear();
    if (std::find(self.marked_.begin(), self.marked_.end(), row) == self.marked_.end()) {
      self.marked_.push_back(row);
    }
    return {};
  }

  static Variant IsSelected(BillList& self, Arguments /*arguments*/) {
    self.AskOnce();
    return !self.marked_.empty();
  }

  // The marked rows, in the order in which they were marked.
  static Variant Selected(BillList& self, Arguments /*arguments*/) {
    self.AskOnce();
    const auto selected = std::make_shared<Vector>();
    for (const std::int32_t row : self.marked_) {
      self.list_.rows->MoveFirst();
      if (row > 0) self.list_.rows->Move(row);
      selected->Add(std::make_shared<ChosenRow>(*self.list_.rows));
    }
    return selected;
  }

  static Variant Release(BillList& self, Arguments /*arguments*/) {
    self.list_ = {};
    self.marked_.clear();
    return {};
  }

  static std::span<const Member<BillList>> Members() {
    static constexpr std::array<Member<BillList>, 32> kMembers{{
        {"Left", InvokeKind::kLet, "(value As Long)", Let<kLeft>, 1},
        {"Left", InvokeKind::kGet, "() As Long", Get<kLeft>},
        {"Top", InvokeKind::kLet, "(value As Long)", Let<kTop>, 1},
        {"Top", InvokeKind::kGet, "() As Long", Get<kTop>},
        {"Width", InvokeKind::kLet, "(value As Long)", Let<kWidth>, 1},
        {"Width", InvokeKind::kGet, "() As Long", Get<kWidth>},
        {"Height", InvokeKind::kLet, "(value As Long)", Let<kHeight>, 1},
        {"Height", InvokeKind::kGet, "() As Long", Get<kHeight>},
        {"Visible", InvokeKind::kLet, "(value As Boolean)", Let<kVisible>, 1},
        {"Visible", InvokeKind::kGet, "() As Boolean", Get<kVisible>},
        {"ISShowReport", InvokeKind::kLet, "(value As Boolean)", Let<kISShowReport>, 1},
        {"ListShowStatus", InvokeKind::kLet, "(value As Integer)", Let<kListShowStatus>, 1},
        {"DestBillTransType", InvokeKind::kLet, "(value As String)", Let<kDestBillTransType>, 1},
        {"ListID", InvokeKind::kLet, "(value As Long)", Let<kListID>, 1},
        {"TranType", InvokeKind::kLet, "(value As Integer)", Let<kTranType>, 1},
        {"BaseInfo", InvokeKind::kLet, "(value As String)", Let<kBaseInfo>, 1},
        {"MultiSelect", InvokeKind::kLet, "(value As Boolean)", Let<kMultiSelect>, 1},
        {"CanSelectMultiRow", InvokeKind::kLet, "(value As Boolean)", Let<kCanSelectMultiRow>, 1},
        {"Selected", InvokeKind::kGet, "() As Vector", Selected},
        {"GetListRs", InvokeKind::kGet, "() As Recordset", GetListRs},
        {"GetListFieldsDes", InvokeKind::kGet, "() As Vector", GetListFieldsDes},
        {"Filter", InvokeKind::kLet, "(value As String)", Let<kFilter>, 1},
        {"LocalCnn", InvokeKind::kLet, "(value As String)", Let<kLocalCnn>, 1},
        {"SystemName", InvokeKind::kLet, "(value As String)", Let<kSystemName>, 1},
        {"ROB", InvokeKind::kLet, "(value As Long)", Let<kROB>, 1},
        {"ROB", InvokeKind::kGet, "() As Long", Get<kROB>},
        {"Load", InvokeKind::kMethod, "() As Boolean", Load},
        {"IsOpened", InvokeKind::kGet, "() As Boolean", IsOpened},
        {"IsSelected", InvokeKind::kGet, "() As Boolean", IsSelected},
        {"GetListDes", InvokeKind::kGet, "() As Dictionary", GetListDes},
        {"SelectFlag", InvokeKind::kMethod, "(row As Long)", SelectFlag, 1},
        {"Release", InvokeKind::kMethod, "()", Release},
    }};
    return kMembers;
  }

 private:
  [[nodiscard]] std::string FilterText() const {
    const std::string filter = settings_[kFilter].TextOrEmpty();
    return Trim(filter).empty() ? std::string() : Join(" And (", filter, ")");
  }

  [[nodiscard]] ShownList SalesOrders() {
    const std::int32_t rob = settings_[kROB].ToInt32();
    // clang-format off
    return {"销售订单", {{"单据编号", "FBillNo", ""}, {"日期", "FDate", ""}, {"购货单位", "FCustName", ""}},
            GetServer().Query(Join(
        "Select x1.* From (\r\n"
        "Select v1.FInterID,v1.FTranType,v1.FBillNo,v1.FDate,v1.FCustID,t4.FNumber As FCustNumber,\r\n"
        "t4.FName As FCustName,v1.FROB,v1.FStatus,v1.FClosed,v1.FCancelLation\r\n"
        "From SEOrder v1\r\n"
        "Left Join t_Organization t4 On v1.FCustID=t4.FItemID\r\n"
        "Where 1=1", RightText(GetServer(), RightKind::kCustomers, "t4"), ") x1\r\n"
        "Where 1=1", rob == 0 ? "" : Join(" And x1.FROB=", rob), FilterText(), "\r\n"
        "Order By x1.FBillNo,x1.FInterID"))};
    // clang-format on
  }

  [[nodiscard]] ShownList ProductionTasks() {
    // clang-format off
    return {"生产任务单", {{"单据编号", "FBillNo", ""}, {"日期", "FCheckDate", ""}, {"物料名称", "FItemName", ""}},
            GetServer().Query(Join(
        "Select x1.* From (\r\n"
        "Select v1.FInterID,v1.FTranType,v1.FBillNo,v1.FCheckDate,v1.FItemID,t1.FNumber As FItemNumber,\r\n"
        "t1.FName As FItemName,v1.FStatus,v1.FCancelLation\r\n"
        "From ICMO v1\r\n"
        "Left Join t_ICItem t1 On v1.FItemID=t1.FItemID) x1\r\n"
        "Where 1=1", FilterText(), "\r\n"
        "Order By x1.FBillNo,x1.FInterID"))};
    // clang-format on
  }

  void AskOnce() {
    if (has_asked_ || !marked_.empty() || !list_.rows) return;
    has_asked_ = true;
    const std::optional<std::int32_t> row =
        GetServer().Choose(Candidates{list_, settings_[kFilter].TextOrEmpty()});
    if (row) marked_.push_back(*row);
  }

  std::array<Variant, kSettings> settings_;
  ShownList list_;
  std::vector<std::int32_t> marked_;
  bool has_asked_ = false;
};

}  // namespace

ObjectRef MakeBillList(ServerRef server) {
  return std::make_shared<BillList>(std::move(server));
}

}  // namespace salerpt::middletier
