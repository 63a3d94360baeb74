#include "sqltoolkit/report_header.h"

#include <memory>
#include <utility>

#include "runtime/mparse.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

DictionaryRef ColumnRow(std::string caption, std::string_view head_second, ColumnType type,
                        std::string_view column, bool visible) {
  auto row = std::make_shared<Dictionary>();
  row->Set("FColCaption", std::move(caption));
  row->Set("FHeadSecond", head_second);
  row->Set("FColType", Join(static_cast<int>(type)));
  row->Set("FColName", column);
  row->Set("FVisible", static_cast<std::int16_t>(visible ? 1 : 0));
  return row;
}

}  // namespace

void AddHeader(Vector& header, std::string caption, std::string_view head_second, ColumnType type,
               std::string_view column, bool visible) {
  header.Add(ColumnRow(std::move(caption), head_second, type, column, visible));
}

void AddHeader(Vector& header, std::string caption, std::string_view head_second, ColumnType type,
               std::string_view column, bool visible, ForceHide force_hide) {
  const DictionaryRef row = ColumnRow(std::move(caption), head_second, type, column, visible);
  row->Set("FForceHide", force_hide.value);
  header.Add(row);
}

void AddHeader(Vector& header, std::string caption, std::string_view head_second, ColumnType type,
               std::string_view column, bool visible, MergerType merger_type) {
  const DictionaryRef row = ColumnRow(std::move(caption), head_second, type, column, visible);
  row->Set("FMergerType", merger_type.value);
  header.Add(row);
}

void AddHeader(Vector& header, std::string caption, std::string_view head_second, ColumnType type,
               std::string_view column, bool visible, MergerType merger_type, ForceHide force_hide) {
  const DictionaryRef row = ColumnRow(std::move(caption), head_second, type, column, visible);
  row->Set("FMergerType", merger_type.value);
  row->Set("FForceHide", force_hide.value);
  header.Add(row);
}

void AddTitle(Vector& title, std::string caption, std::int16_t index) {
  auto line = std::make_shared<Dictionary>();
  line->Set("FCaption", std::move(caption));
  line->Set("FIndex", index);
  title.Add(line);
}

std::string RangeCaption(std::string_view begin, std::string_view end, std::string_view all) {
  if (begin.empty() && end.empty()) return std::string(all);
  return Join(begin, "  --  ", end);
}

std::string NarrowRangeCaption(std::string_view label, std::string_view narrow_label, std::string_view begin,
                               std::string_view end, std::string_view all) {
  if (begin.empty() && end.empty()) return Join(ResText(label), ResText(all));
  return Join(ResText(narrow_label), begin, " -- ", end);
}

}  // namespace salerpt
