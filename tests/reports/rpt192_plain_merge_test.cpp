// The batch tracking against a merge that is written down plainly and looks at every row of every set: grids
// of random sets, with few different numbers, so that everything meets everything.
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <random>

#include "tests/reports/rpt192_world.h"

namespace salerpt::testing {
namespace {

struct OrderLine {
  std::int32_t order, entry, item;
  std::string bill, name;
  std::optional<std::string> customer, model, bom;
  std::optional<double> price;
  double qty, common_qty, amount;
};
struct WorkTask {
  std::int32_t order, entry, item, task;
  std::string bill;
  double qty;
};
struct GoodsReceipt {
  std::int32_t order, entry, item, task, id;
  std::optional<std::string> bill, batch;
  double qty, common_qty, amount;
};
struct MaterialIssue {
  std::int32_t task, id;
  std::optional<std::string> bill, shop;
  std::optional<double> common_qty, common_price;
  double qty, amount;
};
struct Sets {
  std::vector<OrderLine> orders;
  std::vector<WorkTask> tasks;
  std::vector<GoodsReceipt> receipts;
  std::vector<MaterialIssue> issues;
};

enum Measure {
  kQty,
  kCommonQty,
  kAmount,
  kTaskQty,
  kInQty,
  kInCommonQty,
  kInAmount,
  kOutQty,
  kOutCommonQty,
  kOutAmount
};
using MeasureSet = std::array<double, 10>;

std::string Long(std::int32_t value) {
  return "long " + std::to_string(value);
}
std::string Real(double value) {
  return "double " + NumberText(value);
}
std::string TextOf(const std::string& value) {
  return "text " + value;
}
std::string TextOrBlank(const std::optional<std::string>& value) {
  return "text " + value.value_or("");
}

// The merge, row after row, every set searched from its first row to its last.
class PlainMerge {
 public:
  explicit PlainMerge(const Sets& sets) : sets_(sets) {}

  std::vector<GridRow> Run() {
    if (sets_.orders.empty()) return {};
    TakeGroup(sets_.orders[0]);
    TakeNames(sets_.orders[0]);
    for (const OrderLine& line : sets_.orders) {
      if (line.order != order_) {
        CloseItem();
        CloseOrder();
        TakeGroup(line);
      } else if (line.item != item_) {
        CloseItem();
        TakeGroup(line);
      }
      Count(kQty, line.qty);
      Count(kCommonQty, line.common_qty);
      Count(kAmount, line.amount);
      WriteLine(line);
      for (const GoodsReceipt& receipt : sets_.receipts) {
        if (receipt.order == line.order && receipt.item == line.item && receipt.entry == line.entry) {
          WriteReceipt(receipt);
        }
      }
      for (const WorkTask& task : sets_.tasks) {
        if (task.order == line.order && task.item == line.item && task.entry == line.entry) WriteTask(task);
      }
      TakeNames(line);
    }
    CloseItem();
    CloseOrder();
    WriteTotals(total_set_, 101, {{"FOrderBillNo", "text 合计"}});
    return grid_;
  }

 private:
  void TakeGroup(const OrderLine& line) {
    order_ = line.order;
    item_ = line.item;
  }
  void TakeNames(const OrderLine& line) {
    name_ = line.name;
    bill_ = line.bill;
  }
  void Count(Measure measure, double value) {
    item_set_[measure] += value;
    order_set_[measure] += value;
  }

  void CloseItem() {
    WriteTotals(item_set_, 102, {{"FName", TextOf(name_ + "(小计)")}});
    item_set_ = {};
  }
  void CloseOrder() {
    WriteTotals(order_set_, 102, {{"FOrderBillNo", TextOf(bill_ + "(小计)")}});
    for (std::size_t i = 0; i < total_set_.size(); ++i) total_set_[i] += order_set_[i];
    order_set_ = {};
  }
  void WriteTotals(const MeasureSet& measures, std::int32_t sum_sort, GridRow row) {
    const char* fields[] = {"FQty",        "FCUUnitQty", "FAmount", "FWorkBillQty", "FQty2",
                            "FCUUnitQty2", "FInAmount",  "FQty3",   "FCUUnitQty3",  "FOutAmount"};
    for (std::size_t i = 0; i < measures.size(); ++i) row[fields[i]] = Real(measures[i]);
    row["FInterID"] = Long(order_);
    row["FItemID"] = Long(item_);
    row["FSumSort"] = Long(sum_sort);
    grid_.push_back(std::move(row));
  }

  void WriteLine(const OrderLine& line) {
    GridRow row{{"FInterID", Long(line.order)},
                {"FTranType", "long 81"},
                {"FBillNo", TextOf(line.bill)},
                {"FItemID", Long(line.item)},
                {"FOrderBillNo", TextOf(line.bill)},
                {"FDate", "date 2003-07-15"},
                {"FCustNumber", "text 01.001"},
                {"FCustShortNumber", "text 001"},
                {"FCustName", TextOrBlank(line.customer)},
                {"FNumber", TextOf("02." + std::to_string(line.item))},
                {"FShortNumber", TextOf(std::to_string(line.item))},
                {"FName", TextOf(line.name)},
                {"FModel", TextOrBlank(line.model)},
                {"FBOM", TextOrBlank(line.bom)},
                {"FUnitName", "text 只"},
                {"FQty", Real(line.qty)},
                {"FCUUnitName", "text 对"},
                {"FCUUnitQty", Real(line.common_qty)},
                {"FCUUnitPrice", "double 20"},
                {"FAmount", Real(line.amount)},
                {"FAuxPropName", "text 红色"},
                {"FSumSort", "long 0"}};
    if (line.price) row["FPrice"] = Real(*line.price);
    grid_.push_back(std::move(row));
  }
  void WriteReceipt(const GoodsReceipt& receipt) {
    grid_.push_back({{"FInterID", Long(receipt.id)},
                     {"FTranType", "long 2"},
                     {"FBillNo", TextOrBlank(receipt.bill)},
                     {"FInBillNo", TextOrBlank(receipt.bill)},
                     {"FBatchNo", TextOrBlank(receipt.batch)},
                     {"FKFDate", "text 2003-07-20"},
                     {"FKFPeriod", "long 90"},
                     {"FQty2", Real(receipt.qty)},
                     {"FPrice2", "double 7"},
                     {"FCUUnitQty2", Real(receipt.common_qty)},
                     {"FCUUnitPrice2", "double 14"},
                     {"FInAmount", Real(receipt.amount)},
                     {"FSumSort", "long 0"}});
    Count(kInQty, receipt.qty);
    Count(kInCommonQty, receipt.common_qty);
    Count(kInAmount, receipt.amount);
  }
  void WriteTask(const WorkTask& task) {
    grid_.push_back({{"FInterID", Long(task.task)},
                     {"FTranType", "long 85"},
                     {"FBillNo", TextOf(task.bill)},
                     {"FWorkBillNo", TextOf(task.bill)},
                     {"FWorkBillQty", Real(task.qty)},
                     {"FSumSort", "long 0"}});
    Count(kTaskQty, task.qty);
    for (const GoodsReceipt& receipt : sets_.receipts) {
      if (receipt.task == task.task) WriteReceipt(receipt);
    }
    for (const MaterialIssue& issue : sets_.issues) {
      if (issue.task == task.task) WriteIssue(issue);
    }
  }
  void WriteIssue(const MaterialIssue& issue) {
    grid_.push_back({{"FInterID", Long(issue.id)},
                     {"FTranType", "long 24"},
                     {"FBillNo", TextOrBlank(issue.bill)},
                     {"FOutBillNo", TextOrBlank(issue.bill)},
                     {"FWorkShop", TextOrBlank(issue.shop)},
                     {"FNumber2", "text 05.01"},
                     {"FShortNumber2", "text 01"},
                     {"FName2", "text 电线"},
                     {"FModel2", "text 2x0.5"},
                     {"FBatchNo2", "text M0306"},
                     {"FKFDate2", "text 2003-06-01"},
                     {"FKFPeriod2", "long 365"},
                     {"FUnitName3", "text 米"},
                     {"FQty3", Real(issue.qty)},
                     {"FPrice3", "double 2"},
                     {"FCUUnitName3", "text 卷"},
                     {"FCUUnitQty3", Real(issue.common_qty.value_or(0))},
                     {"FCUUnitPrice3", Real(issue.common_price.value_or(0))},
                     {"FOutAmount", Real(issue.amount)},
                     {"FSumSort", "long 0"}});
    Count(kOutQty, issue.qty);
    Count(kOutCommonQty, issue.common_qty.value_or(0));
    Count(kOutAmount, issue.amount);
  }

  const Sets& sets_;
  std::vector<GridRow> grid_;
  std::int32_t order_ = 0;
  std::int32_t item_ = 0;
  std::string name_, bill_;
  MeasureSet item_set_{}, order_set_{}, total_set_{};
};

// Sets of a seed: the same on every machine.
class RandomSets {
 public:
  explicit RandomSets(unsigned seed) : random_(seed) {}

  Sets Make() {
    Sets sets;
    const int lines = Below(13);
    for (int i = 0; i < lines; ++i) sets.orders.push_back(MakeLine());
    // The middle tier gives them by order and item; every other time they are left as they came, which makes
    // groups that come back.
    if (Below(2) == 0) {
      std::stable_sort(sets.orders.begin(), sets.orders.end(), [](const OrderLine& a, const OrderLine& b) {
        return a.order != b.order ? a.order < b.order : a.item < b.item;
      });
    }
    const int tasks = Below(10);
    for (int i = 0; i < tasks; ++i) sets.tasks.push_back(MakeTask());
    const int receipts = Below(16);
    for (int i = 0; i < receipts; ++i) sets.receipts.push_back(MakeReceipt());
    const int issues = Below(16);
    for (int i = 0; i < issues; ++i) sets.issues.push_back(MakeIssue());
    return sets;
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  std::int32_t Key() { return 1 + Below(3); }
  // Tenths have no exact double: sums must be taken in the very order of the rows.
  double Tenths() { return (Below(400) - 100) / 10.0; }
  std::optional<std::string> PerhapsText(const char* text) {
    return Below(4) == 0 ? std::nullopt : std::optional<std::string>(text + std::to_string(Below(9)));
  }
  std::optional<double> PerhapsTenths() {
    return Below(4) == 0 ? std::nullopt : std::optional<double>(Tenths());
  }

  OrderLine MakeLine() {
    OrderLine line{};
    line.order = Key();
    line.entry = Key();
    line.item = Key();
    line.bill = "SEORD" + std::to_string(Below(5));
    line.name = "台灯" + std::to_string(Below(5));
    line.customer = PerhapsText("东方商厦");
    line.model = PerhapsText("TD-");
    line.bom = PerhapsText("BOM-");
    line.price = PerhapsTenths();
    line.qty = Tenths();
    line.common_qty = Tenths();
    line.amount = Tenths();
    return line;
  }
  WorkTask MakeTask() {
    WorkTask task{};
    task.order = Key();
    task.entry = Key();
    task.item = Key();
    task.task = Below(5);
    task.bill = "WORK" + std::to_string(Below(5));
    task.qty = Tenths();
    return task;
  }
  GoodsReceipt MakeReceipt() {
    GoodsReceipt receipt{};
    receipt.order = Key();
    receipt.entry = Key();
    receipt.item = Key();
    receipt.task = Below(5);
    receipt.id = Below(100);
    receipt.bill = PerhapsText("CIN");
    receipt.batch = PerhapsText("B");
    receipt.qty = Tenths();
    receipt.common_qty = Tenths();
    receipt.amount = Tenths();
    return receipt;
  }
  MaterialIssue MakeIssue() {
    MaterialIssue issue{};
    issue.task = Below(5);
    issue.id = Below(100);
    issue.bill = PerhapsText("SOUT");
    issue.shop = PerhapsText("车间");
    issue.common_qty = PerhapsTenths();
    issue.common_price = PerhapsTenths();
    issue.qty = Tenths();
    issue.amount = Tenths();
    return issue;
  }

  std::mt19937 random_;
};

class Rpt192PlainMerge : public Rpt192World, public ::testing::WithParamInterface<unsigned> {
 protected:
  static constexpr unsigned kSeedsOfATest = 50;

  static Variant OrNull(const std::optional<std::string>& value) {
    return value ? Variant(*value) : Variant(Null());
  }
  static Variant OrNull(const std::optional<double>& value) {
    return value ? Variant(*value) : Variant(Null());
  }
  void Give(const Sets& sets) {
    ClearSets();
    for (const OrderLine& line : sets.orders) {
      AddOrder(line.order, line.item, line.entry,
               {{"FOrderBillNo", line.bill},
                {"FName", line.name},
                {"FCustName", OrNull(line.customer)},
                {"FModel", OrNull(line.model)},
                {"FBom", OrNull(line.bom)},
                {"FPrice", OrNull(line.price)},
                {"FQty", line.qty},
                {"FCUUnitQty", line.common_qty},
                {"FAmount", line.amount}});
    }
    for (const WorkTask& task : sets.tasks) {
      AddTask(task.order, task.item, task.entry, task.task,
              {{"FWorkBillNo", task.bill}, {"FWorkBillQty", task.qty}});
    }
    for (const GoodsReceipt& receipt : sets.receipts) {
      AddReceipt(receipt.order, receipt.item, receipt.entry, receipt.task, receipt.id,
                 {{"FInBillNo", OrNull(receipt.bill)},
                  {"FBatchNo", OrNull(receipt.batch)},
                  {"FQty", receipt.qty},
                  {"FCUUnitQty", receipt.common_qty},
                  {"FAmount", receipt.amount}});
    }
    for (const MaterialIssue& issue : sets.issues) {
      AddIssue(issue.task, issue.id,
               {{"FOutBillNo", OrNull(issue.bill)},
                {"FWorkShop", OrNull(issue.shop)},
                {"FCUUnitQty", OrNull(issue.common_qty)},
                {"FCUUnitPrice", OrNull(issue.common_price)},
                {"FQty", issue.qty},
                {"FAmount", issue.amount}});
    }
  }
  static void ExpectSameGrid(const std::vector<GridRow>& grid, const std::vector<GridRow>& expected) {
    ASSERT_EQ(grid.size(), expected.size());
    for (std::size_t i = 0; i < grid.size(); ++i) ASSERT_EQ(grid[i], expected[i]) << "row " << i;
  }
};

TEST_P(Rpt192PlainMerge, GivesTheSameGrid) {
  for (unsigned seed = GetParam(); seed < GetParam() + kSeedsOfATest; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const Sets sets = RandomSets(seed).Make();
    Give(sets);
    Fetch();
    ASSERT_NO_FATAL_FAILURE(ExpectSameGrid(Grid(), PlainMerge(sets).Run()));
  }
}

TEST_P(Rpt192PlainMerge, GivesTheSameGridWithoutSubtotals) {
  for (unsigned seed = GetParam(); seed < GetParam() + kSeedsOfATest; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const Sets sets = RandomSets(seed + 10000).Make();
    Give(sets);
    Fetch({{"DisplayType", std::int32_t{1}}});
    std::vector<GridRow> expected = PlainMerge(sets).Run();
    std::erase_if(expected, [](const GridRow& row) { return row.at("FSumSort") == "long 102"; });
    ASSERT_NO_FATAL_FAILURE(ExpectSameGrid(Grid(), expected));
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Rpt192PlainMerge, ::testing::Range(1U, 401U, 50U));

}  // namespace
}  // namespace salerpt::testing
