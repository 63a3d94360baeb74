// Any text as the order that a plan holds: the sort pane takes it, and what it composes, restored, composes
// the same; the suite reads it as the pane shows it.
#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "dialogs/sort_pane.h"
#include "fuzz/require.h"
#include "shell/recorded/recorded_suite.h"
#include "suite/middletier/sort_list.h"

namespace {

using salerpt::OrderGrid;
using salerpt::SortField;
using salerpt::fuzz::Require;

constexpr std::array<SortField, 3> kFields = {{{"产品代码", "FNumber", "", "FShortNumber"},
                                               {"出库数量(常用)", "FCUUnitOutQty"},
                                               {"出库金额", "FOutAmount"}}};

// A sort pane on a bare form, under one of the code rules.
class Pane {
 public:
  explicit Pane(std::int32_t use_short_number) {
    salerpt::shell::RecordedCase world;
    world.profile["IC/UseShortNumber"] = use_short_number;
    suite_ = std::make_shared<salerpt::shell::RecordedSuite>(world);
    suite_->Register(runtime_);
    form_.Add<salerpt::TabControl>("mstFilter").tabs = {{"条件", true}};
    pane_ = std::make_unique<salerpt::SortPane>(form_, kFields, "mstFilter");
    pane_->FieldListBuild(true);
  }

  std::string Recomposed(std::string_view text) {
    pane_->RestoreOrderGrid(text);
    return pane_->ComposeOrderBy();
  }
  [[nodiscard]] const std::vector<OrderGrid::Row>& Rows() const {
    return form_.Get<OrderGrid>("vsOrder").rows;
  }

 private:
  salerpt::Runtime runtime_;
  std::shared_ptr<salerpt::shell::RecordedSuite> suite_;
  salerpt::Form form_;
  std::unique_ptr<salerpt::SortPane> pane_;
};

void Check(Pane& pane, std::string_view text) {
  const std::string composed = pane.Recomposed(text);
  const auto rows = pane.Rows();
  Require(rows.size() <= static_cast<std::size_t>(OrderGrid::kCapacity));
  for (const OrderGrid::Row& row : rows) {
    Require(row.ascending + row.descending == 1 && !row.marked);
    Require(row.caption.empty() ||
            std::any_of(kFields.begin(), kFields.end(),
                        [&row](const SortField& field) { return row.caption == field.caption; }));
  }
  Require(pane.Recomposed(composed) == composed);
  // A plan may hold a row without a field, whose direction the suite would take for one.
  if (std::any_of(rows.begin(), rows.end(), [](const OrderGrid::Row& row) { return row.field.empty(); }))
    return;
  const auto terms = salerpt::middletier::ReadSortList(composed);
  Require(
      std::equal(terms.begin(), terms.end(), rows.begin(), rows.end(), [](const auto& term, const auto& row) {
        return term.name == row.field && term.descending == (row.descending == 1);
      }));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const std::int32_t use_short_number : {0, 1}) {
    Pane pane(use_short_number);
    Check(pane, salerpt::fuzz::AsText(data, size));
  }
  return 0;
}
