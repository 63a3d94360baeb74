// The frame that a report sends in place of a batch: it tells the groups, the middle tier what is grouped.
#pragma once

#include <string>
#include <string_view>

#include "runtime/dictionary.h"
#include "suite/tsql/session.h"

namespace salerpt::middletier {

// The "Select" of a request that lists, taken apart where its contents go. All parts lie in the text given.
struct ListFrame {
  std::string_view table;   // makes `#Data`, up to its columns
  std::string_view insert;  // into it, up to the values
};
// Raises invalid-call where the text does not fill `#Data`.
ListFrame ReadListFrame(std::string_view select);

// The same of one that groups.
struct GroupFrame {
  std::string_view table;   // makes `#Data` with the columns of the groups
  std::string_view insert;  // and the values of the groups, the item's code last
  std::string_view cases;   // of FSumSort, up to its Else
  std::string_view rest;    // the Else and the End
  std::string_view joins;
};
// Raises invalid-call where the text does not fill `#Data` or tells no FSumSort.
GroupFrame ReadGroupFrame(std::string_view select);

// True where a word of SQL, such as a column, stands in the text, whatever its case.
bool HoldsWord(std::string_view sql, std::string_view word);

// What a frame leaves empty. A row of the report is an item, or a part of one, in its groups.
struct FrameContents {
  std::string columns;  // definitions of the columns behind the groups': FNumber first, FSumSort last but FID
  std::string values;   // the values between these two, a comma behind each
  std::string part;     // the column of the statement that parts the rows of an item, such as its customer
  std::string tables;   // the tables, t1 being the item; the frame's joins come behind them
  std::string where;    // the conditions, each with " And " in front
};

// A request with its frame filled; the caller's stays as it is. "Select" makes `#Data` with the columns of
// its groups, or none, inserts into it and selects; "GROUPBY" groups. A frame without "GROUPBY" lists the
// items and their total, FSumSort 101. Raises invalid-call for a "Select" that does not fill `#Data` or tells
// no FSumSort, and for a "GROUPBY" without rollup.
DictionaryRef FillFrame(const Dictionary& request, const FrameContents& contents);

// True where the frame of a request groups its rows.
bool IsGroupedFrame(const Dictionary& request);

// The rollup of a filled frame sums up the parts of each item, too. No report shows that, so these rows go.
// Raises the engine's errors.
void DropItemSums(tsql::Session& session, std::string_view table);

}  // namespace salerpt::middletier
