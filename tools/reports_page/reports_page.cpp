#include "reports_page/reports_page.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "reports_page/dialog_keys.h"
#include "reports_page/report_columns.h"
#include "runtime/report_class.h"
#include "runtime/text.h"

namespace salerpt::tools {
namespace {

constexpr std::string_view kIntroduction = R"(# The reports

<!-- Written from the code by tools/reports_page; a change of the code is accepted with
     cmake --build --preset release --target reports_page_update -->

Each report: what it answers, the keys of its filter as the dialog writes them, the rows by which it
sums, and its columns.

- **Filter.** `salerpt show CLASS KEY=VALUE …` takes these keys, and a host sets them in the dictionary
  `Filter`. The default is what the dialog is confirmed with as it opens. Keys in *B…* and *E…* are the
  begin and the end of a range; an empty code is an open end.
- **Groupings.** `GroupBy=1` turns grouping on, `SumMode` chooses by what, `BLevel` and `ELevel` the
  class levels that are shown, `OnlyShowSum=1` leaves the total rows alone. *(a property)* stands for
  each property that the account set defines; `SumField` tells which one. A grouping by class levels has
  one column for each level from `BLevel` to `ELevel`; one is shown here.
- **Columns.** Heading (group heading first), field of the row set, kind. *in* names the groupings that
  show a column, by their `SumMode`; *list* is the report without grouping, `AuxProp=1` and the like a
  check box that adds the column to the list. Codes are the long ones.
- `FSumSort` of every row: 0 a detail row, above 0 a total row, 101 the grand total.

)";

// The anchor of a class's chapter.
std::string Anchor(std::string_view class_name) {
  std::string anchor(class_name);
  anchor[0] = 'r';
  return anchor;
}

std::string List(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) Append(list, list.empty() ? "" : ", ", text);
  return list;
}

// A cell of a table.
std::string Cell(std::string_view text) {
  std::string cell;
  for (const char character : text) {
    if (character == '|') cell += '\\';
    cell += character;
  }
  return cell;
}

// --- Head

void AppendOverview(std::string& page) {
  Append(page, "| class | title | what it answers |\n|---|---|---|\n");
  for (const ReportClass& report : ReportClasses()) {
    Append(page, "| [", report.name, "](#", Anchor(report.name), ") | ", report.title, " | ", report.purpose,
           " |\n");
  }
}

void AppendHead(std::string& page, const ReportClass& report, const ReportColumns& columns) {
  Append(page, "\n## ", report.name, "\n\n**", report.title, "** · ", report.purpose, "\n\n");
  std::vector<std::string> facts = {Join("dialog `", report.dialog, "`"),
                                    Join("plan family ", report.plan_family)};
  facts.push_back(report.drill_target.empty() ? "no detail report"
                                              : Join("a row's detail: [", report.drill_target, "](#",
                                                     Anchor(report.drill_target), ")"));
  std::vector<std::string> log_keys = columns.log_keys;
  if (!report.log_key.empty()) log_keys.insert(log_keys.begin(), std::string(report.log_key));
  for (std::string& key : log_keys) key = Join("`", key, "`");
  facts.push_back(log_keys.empty() ? "no usage log" : Join("usage log ", List(log_keys)));
  for (std::size_t i = 0; i < facts.size(); ++i) Append(page, i == 0 ? "" : " · ", facts[i]);
  page += '\n';
}

// --- Filter

std::string MeaningOf(const DialogKey& key, const DialogKeys& dialog) {
  if (EqualNames(key.key, "SumName")) return "text of the row by which it sums";
  if (EqualNames(key.key, "SumField")) return "description of the row by which it sums";
  if (EqualNames(key.key, "OrderBy") && !dialog.sort_fields.empty()) {
    return Join("fields, each with ASC or DESC: ", List(dialog.sort_fields));
  }
  if (!key.choices.empty()) return Join(key.caption, key.caption.empty() ? "" : ": ", List(key.choices));
  if (!key.caption.empty()) return key.caption;
  // Out of the user's reach while the dialog opens without grouping.
  return key.key == "BLevel" || key.key == "ELevel" ? "类别级次" : "";
}

void AppendFilter(std::string& page, const DialogKeys& dialog) {
  Append(page, "\n| filter key | kind | default | on the dialog |\n|---|---|---|---|\n");
  for (const DialogKey& key : dialog.keys) {
    Append(page, "| `", key.key, "` | ", key.kind, " | ", Cell(key.by_default), " | ",
           Cell(MeaningOf(key, dialog)), " |\n");
  }
}

// --- Groupings

void AppendGroupings(std::string& page, const std::vector<Grouping>& groupings) {
  std::string list;
  for (const Grouping& grouping : groupings) {
    if (grouping.choice.empty() || grouping.is_option) continue;
    const bool by_text = grouping.choice.ends_with(grouping.text);
    Append(list, list.empty() ? "" : ", ", "`", grouping.choice, "`", by_text ? "" : " ",
           by_text ? "" : grouping.text);
  }
  if (list.empty()) return;
  Append(page, "\nGroupings: ", list, ".\n");
}

// --- Columns

std::string GroupingName(const Grouping& grouping) {
  if (grouping.choice.empty()) return "list";
  const std::string& choice = grouping.choice;
  const std::string name = choice.substr(choice.rfind('=') + 1);
  const std::size_t blank = choice.find(' ');
  return blank == std::string::npos ? name : Join(name, " with ", choice.substr(0, blank));
}

// All groupings, some of them by name, or the check box that adds the column to the list.
std::string WhereShown(const ReportColumn& column, const std::vector<Grouping>& groupings) {
  std::vector<std::string> names;
  std::vector<std::string> options;
  for (const std::size_t i : column.groupings) {
    const Grouping& grouping = groupings[i];
    if (grouping.is_option) {
      options.push_back(Join("`", grouping.choice, "`"));
    } else {
      names.push_back(GroupingName(grouping));
    }
  }
  if (names.empty()) return List(options);
  const auto is_option = [](const Grouping& grouping) { return grouping.is_option; };
  const auto all = groupings.size() - std::count_if(groupings.begin(), groupings.end(), is_option);
  return names.size() == all ? "all" : List(names);
}

void AppendColumns(std::string& page, const ReportColumns& columns, const std::vector<Grouping>& groupings) {
  const bool is_grouped =
      std::any_of(columns.columns.begin(), columns.columns.end(),
                  [&](const ReportColumn& column) { return WhereShown(column, groupings) != "all"; });
  Append(page, "\n| column | field | kind |", is_grouped ? " in |" : "", "\n|---|---|---|",
         is_grouped ? "---|" : "", "\n");
  for (const ReportColumn& column : columns.columns) {
    Append(page, "| ", Cell(column.heading), " | `", column.field, "` | ", column.kind, " |");
    if (is_grouped) Append(page, " ", WhereShown(column, groupings), " |");
    page += '\n';
  }
}

}  // namespace

std::string ReportsPage() {
  std::string page(kIntroduction);
  AppendOverview(page);
  for (const ReportClass& report : ReportClasses()) {
    const DialogKeys dialog = ReadDialogKeys(report.dialog);
    const ReportColumns columns = ReadReportColumns(report, dialog.groupings);
    AppendHead(page, report, columns);
    AppendFilter(page, dialog);
    AppendGroupings(page, dialog.groupings);
    AppendColumns(page, columns, dialog.groupings);
  }
  return page;
}

}  // namespace salerpt::tools
