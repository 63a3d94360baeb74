#include "shell/sheet.h"

#include <algorithm>

#include "runtime/dictionary.h"
#include "runtime/text.h"

namespace salerpt::shell {
namespace {

constexpr std::string_view kProgIDPrefix = "ORVSaleRpt.";

std::string ClassOf(const Object& report) {
  std::string_view name = report.ClassName();
  if (name.starts_with(kProgIDPrefix)) name.remove_prefix(kProgIDPrefix.size());
  return std::string(name);
}

}  // namespace

std::vector<std::string> TitleLines(const Vector& title) {
  struct Part {
    std::int32_t index;
    std::string caption;
  };
  std::vector<Part> parts;
  for (std::int32_t i = 1; i <= title.Size(); ++i) {
    const auto row = As<Dictionary>(title.Item(i));
    parts.push_back({row->Get("FIndex").ToInt32(), row->Get("FCaption").TextOrEmpty()});
  }
  std::stable_sort(parts.begin(), parts.end(),
                   [](const Part& a, const Part& b) { return a.index < b.index; });

  std::vector<std::string> lines;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0 && parts[i].index == parts[i - 1].index) {
      Append(lines.back(), "    ", parts[i].caption);
    } else {
      lines.push_back(std::move(parts[i].caption));
    }
  }
  return lines;
}

Sheet ReadSheet(const ObjectRef& report, int amount_scale) {
  Sheet sheet;
  sheet.report = ClassOf(*report);
  sheet.amount_scale = amount_scale;
  if (const auto property = As<Dictionary>(GetMember(report, "Property"))) {
    sheet.name = property->Get("Name").TextOrEmpty();
    sheet.frozen_columns = property->Get("FrozenColumn").ToInt32();
  }
  if (const auto title = As<Vector>(GetMember(report, "Title"))) sheet.lines = TitleLines(*title);
  if (const auto header = As<Vector>(GetMember(report, "Header"))) sheet.columns = LayOutHeader(*header);
  sheet.rows = As<Recordset>(GetMember(report, "Rs"));
  return sheet;
}

}  // namespace salerpt::shell
