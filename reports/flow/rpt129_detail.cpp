// `Rpt129` line by line: the batch of bill lines, the subtotals and totals behind them, their order.
#include <memory>
#include <string>
#include <string_view>

#include "reports/flow/rpt129.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {
namespace {

// A subtotal that the filter does not speak of is shown: summaries that open the detail may leave it out.
bool ShowsSubtotal(const Dictionary& filter, std::string_view key) {
  return !filter.Lookup(key) || FilterNumber(filter, key) == 1;
}

}  // namespace

bool Rpt129::ShowsItemSum() const {
  return ShowsSubtotal(Conditions(), "chkShowItemSum");
}

bool Rpt129::ShowsDateSum() const {
  return ShowsSubtotal(Conditions(), "chkShowDateSum");
}

// The texts stand as they are sent.
// clang-format off
DictionaryRef Rpt129::BuildDetail() const {
  auto request = std::make_shared<Dictionary>();
  request->Set("Select", Join("SET NOCOUNT ON\r\n",
                              fill_text_, "\r\n"
                              "CREATE TABLE #DATA(\r\n",
                              column_definitions_, "\r\n"
                              "  Insert Into #DATA  \r\n"
                              " Select ", value_list_, "\r\n",
                              from_text_, "\r\n",
                              where_text_, "\r\n"));
  request->Set("GROUPBY", "");
  request->Set("EndSel", EndText());
  request->Set("ITEMFILTER", item_filter_template_);
  return request;
}
// clang-format on

// The sections that the filter asks for, freed of their marks; what stays marked runs as a comment. A day's
// subtotals bring their own total, so one total section runs. Grouped rows have their totals from the rollup:
// there every section stays a comment.
std::string Rpt129::ToggledAppendText() const {
  const Dictionary& filter = Conditions();
  if (IsGrouped(filter)) return append_text_;
  std::string text = append_text_;
  if (ShowsItemSum()) {
    text = Replace(text, "/*##chkShowItemSum##", " ");
    text = Replace(text, "##chkShowItemSum##*/", " ");
  }
  if (ShowsDateSum()) {
    text = Replace(text, "/*##chkShowDateSum##", " ");
    text = Replace(text, "##chkShowDateSum##*/", " ");
  } else {
    text = Replace(text, "/*##chkShowNotDateSum##", " ");
    text = Replace(text, "##chkShowNotDateSum##*/", " ");
  }
  return text;
}

// The final select. With subtotals a key in front, FOrderNumber, keeps a subtotal behind its lines and the
// total behind everything: the total's key is the largest code, or day, with a "1" behind it. Code or day is
// then sorted by already and may not stand in the list a second time.
// clang-format off
std::string Rpt129::EndText() const {
  const Dictionary& filter = Conditions();
  const std::string order_by = FilterText(filter, "Orderby");
  std::string sort_key = order_by;
  std::string_view standing_key = "FDate,FBillNo,Fentryid";
  std::string_view head;
  std::string_view sort;
  if (ShowsItemSum()) {
    for (const std::string_view part : {",FNumber ASC", ",FNumber DESC", "FNumber ASC,", "FNumber DESC,",
                                        "FNumber ASC", "FNumber DESC"}) {
      sort_key = Replace(sort_key, part, "");
    }
    head = "Select ( case FName when '" "合计" "' then (Select max(fnumber)+'1' From #Data ) Else fnumber End )"
           " as FOrderNumber ,* From #DATA  ";
    sort = " Order by FOrderNumber,FNumber,FSumSort, ";
  } else if (ShowsDateSum()) {
    for (const std::string_view part : {",FDate ASC", ",FDate DESC", "FDate ASC,", "FDate DESC,",
                                        "FDate ASC", "FDate DESC"}) {
      sort_key = Replace(sort_key, part, "");
    }
    standing_key = "FNumber,FBillNo,Fentryid";
    head = "Select ( case FDate when '" "合计" "' then (Select max(isnull(FDate, ''))+'1' From #Data )"
           " Else FDate End ) as FOrderNumber ,* From #DATA  ";
    sort = " Order by FOrderNumber,FDate,FSumSort, ";
  } else {
    head = "Select * From #DATA  ";
    sort = " Order by FSumSort, ";
  }

  std::string keys;
  if (order_by.empty()) {
    keys = Join(standing_key, " ");
  } else if (sort_key.empty()) {
    keys = standing_key;
  } else {
    // The lines of one bill stay in the bill's order.
    keys = Join(sort_key, sort_key.find("FBillNo") != std::string::npos ? ", Fentryid" : "");
  }
  return Join(head, SumOnly(filter, "Where FSumSort>=101"), "\r\n",
              sort, keys, "\r\n"
              "DROP TABLE #DATA  \r\n");
}
// clang-format on

}  // namespace salerpt
