#include "suite/middletier/report_frame.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "runtime/text.h"

namespace salerpt::middletier {
namespace {

constexpr int kItemSum = -1;

[[noreturn]] void RaiseNoFrame(std::string_view what) {
  throw RuntimeError(error_number::kInvalidCall, "", Join(what, "; the frame of a report was expected"));
}

// --- Words in SQL, whatever their case

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

bool IsWordPart(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '#' || c == '@';
}

bool IsWordAt(std::string_view text, std::size_t place, std::size_t length) {
  const bool begins = place == 0 || !IsWordPart(text[place - 1]);
  const bool ends = place + length == text.size() || !IsWordPart(text[place + length]);
  return begins && ends;
}

// The first place of a word at or behind `from`.
std::size_t FindWord(std::string_view lower, std::string_view word, std::size_t from) {
  std::size_t place = lower.find(word, from);
  while (place != std::string_view::npos && !IsWordAt(lower, place, word.size()))
    place = lower.find(word, place + 1);
  return place;
}

std::size_t FindLastWord(std::string_view lower, std::string_view word) {
  std::size_t place = lower.rfind(word);
  while (place != std::string_view::npos && !IsWordAt(lower, place, word.size()))
    place = place == 0 ? std::string_view::npos : lower.rfind(word, place - 1);
  return place;
}

// --- The parts of a frame

// Where the insert into the table begins: the definition of the table ends there.
std::size_t InsertOf(std::string_view frame) {
  constexpr std::string_view kInsert = "insert into";
  const std::string lower = LowerCase(frame);
  const std::size_t place = lower.rfind(kInsert);
  const bool fills = place != std::string::npos &&
                     Trim(std::string_view(lower).substr(place + kInsert.size())).starts_with("#data");
  if (!fills) RaiseNoFrame("\"Select\" of the request does not fill #Data");
  return place;
}

std::string ItemSumCase(const FrameContents& contents) {
  return Join("When Grouping(", contents.part, ")=1 Then ", kItemSum, kCrLf);
}

std::string WithComma(std::string_view values) {
  const std::string_view told = values.substr(0, values.find_last_not_of(" \r\n") + 1);
  return Join(told, told.ends_with(',') ? "" : ",", kCrLf);
}

// --- Its texts, filled

std::string FillList(std::string_view select, const FrameContents& contents) {
  const ListFrame frame = ReadListFrame(select);
  return Join(frame.table, contents.columns, kCrLf, frame.insert, "t1.FNumber,", contents.values, kCrLf,
              "Case When Grouping(t1.FNumber)=1 Then 101", kCrLf, ItemSumCase(contents), "Else 0 End", kCrLf,
              contents.tables, "Where 1=1", contents.where, kCrLf);
}

std::string FillGroups(std::string_view select, const FrameContents& contents) {
  const GroupFrame frame = ReadGroupFrame(select);
  return Join(frame.table, contents.columns, kCrLf, WithComma(frame.insert), contents.values, kCrLf,
              frame.cases, kCrLf, ItemSumCase(contents), frame.rest, kCrLf, contents.tables, frame.joins,
              kCrLf, "Where 1=1", contents.where, kCrLf);
}

// The part is the innermost group. What stands behind the clause are updates.
std::string GroupByParts(std::string_view group_by, const FrameContents& contents) {
  const std::size_t rollup = LowerCase(group_by).find("with rollup");
  if (rollup == std::string::npos) RaiseNoFrame("\"GROUPBY\" of the request holds no rollup");
  return Join(Trim(group_by.substr(0, rollup)), ",", contents.part, " ", group_by.substr(rollup));
}

}  // namespace

ListFrame ReadListFrame(std::string_view select) {
  const std::size_t insert = InsertOf(select);
  return {select.substr(0, insert), select.substr(insert)};
}

GroupFrame ReadGroupFrame(std::string_view select) {
  const auto [table, insert] = ReadListFrame(select);
  const std::string lower = LowerCase(insert);
  const std::size_t begin = FindLastWord(lower, "case");
  const std::size_t otherwise =
      begin == std::string::npos ? std::string::npos : FindWord(lower, "else", begin);
  const std::size_t end =
      otherwise == std::string::npos ? std::string::npos : FindWord(lower, "end", otherwise);
  if (end == std::string::npos) RaiseNoFrame("\"Select\" of the request tells no FSumSort");
  const std::size_t joins = end + std::string_view("end").size();
  return {table, insert.substr(0, begin), insert.substr(begin, otherwise - begin),
          insert.substr(otherwise, joins - otherwise), insert.substr(joins)};
}

bool HoldsWord(std::string_view sql, std::string_view word) {
  return FindWord(LowerCase(sql), LowerCase(word), 0) != std::string_view::npos;
}

bool IsGroupedFrame(const Dictionary& request) {
  return !Trim(request.Get("GROUPBY").TextOrEmpty()).empty();
}

DictionaryRef FillFrame(const Dictionary& request, const FrameContents& contents) {
  const std::string frame = request.Get("Select").TextOrEmpty();
  DictionaryRef filled = request.Copy();
  if (IsGroupedFrame(request)) {
    filled->Set("Select", FillGroups(frame, contents));
    filled->Set("GROUPBY", GroupByParts(request.Get("GROUPBY").TextOrEmpty(), contents));
  } else {
    filled->Set("Select", FillList(frame, contents));
    filled->Set("GROUPBY", Join("Group By t1.FNumber,", contents.part, " With Rollup", kCrLf));
  }
  return filled;
}

void DropItemSums(tsql::Session& session, std::string_view table) {
  session.Execute(Join("Delete From ", table, " Where FSumSort=", kItemSum));
}

}  // namespace salerpt::middletier
