// The frame that a report sends in place of a batch: it tells the groups, the middle tier what is grouped.
#pragma once

#include <string>
#include <string_view>

#include "runtime/dictionary.h"
#include "suite/tsql/session.h"

namespace salerpt::middletier {

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
