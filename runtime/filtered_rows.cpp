#include "runtime/filtered_rows.h"

namespace salerpt {

void FilteredRows::Start(const RowFilter* filter, RowIndex* index) {
  filter_ = filter;
  index_ = index;
  found_.clear();
  tested_ = RowIndex::kNoRow;
  next_ = 0;
}

void FilteredRows::LeaveIndex(std::int32_t end) {
  static_cast<void>(Count(end));
  index_ = nullptr;
  next_ = end;
}

bool FilteredRows::FollowChain(std::int32_t end) {
  index_->Extend(end);
  while (true) {
    const std::int32_t row =
        tested_ == RowIndex::kNoRow ? index_->First(filter_->KeyHash()) : index_->Next(tested_);
    if (row == RowIndex::kNoRow) return false;
    tested_ = row;
    if (filter_->Passes(rows_, rows_.At(row))) {
      found_.push_back(row);
      return true;
    }
  }
}

bool FilteredRows::Scan(std::int32_t end) {
  while (next_ < end) {
    const std::int32_t row = next_++;
    if (filter_->Passes(rows_, rows_.At(row))) {
      found_.push_back(row);
      return true;
    }
  }
  return false;
}

}  // namespace salerpt
