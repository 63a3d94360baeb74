#include "runtime/memory_recordset.h"

#include <algorithm>
#include <limits>

#include "runtime/error.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

[[noreturn]] void Raise(std::int32_t number, const std::string& description) {
  throw RuntimeError(number, std::string(Recordset::kClassName), description);
}

}  // namespace

RecordsetRef MakeRecordset() {
  return std::make_shared<MemoryRecordset>();
}

// --- Structure

int MemoryRecordset::FieldCount() const {
  RequireNotClosed();
  return static_cast<int>(fields_.size());
}

const FieldInfo& MemoryRecordset::Field(int field) const {
  RequireNotClosed();
  if (static_cast<std::size_t>(field) >= fields_.size()) {
    Raise(error_number::kNoSuchField, Join("field ", field, " was asked of a recordset with ",
                                           static_cast<int>(fields_.size()), " fields, counted from 0"));
  }
  return fields_[static_cast<std::size_t>(field)];
}

int MemoryRecordset::FindField(std::string_view name) const {
  RequireNotClosed();
  const auto found = field_names_.find(name);
  return found == field_names_.end() ? -1 : found->second;
}

// --- Building

void MemoryRecordset::AppendField(std::string_view name, FieldType type, std::int32_t size,
                                  std::int32_t /*attributes*/) {
  RequireNotClosed();
  if (state_ == State::kOpen) {
    Raise(error_number::kInvalidCall,
          Join("field ", name, " cannot be appended to a recordset that is open"));
  }
  const CellKind kind = CellKindOf(type);
  if (name.empty()) Raise(error_number::kWrongArguments, "a field needs a name, and \"\" is none");
  if (kind == CellKind::kText && size == kUnspecified) size = std::numeric_limits<std::int32_t>::max();
  if (kind == CellKind::kText && size <= 0) {
    Raise(error_number::kWrongArguments,
          Join("text field ", name, " has size ", size, " where 1 or more was expected"));
  }
  if (!field_names_.emplace(name, static_cast<int>(fields_.size())).second) {
    Raise(error_number::kDuplicateKey, Join("the recordset has a field ", name, " already"));
  }
  fields_.push_back({std::string(name), type, std::max(size, 0)});
  rows_.AddColumn(kind);
}

void MemoryRecordset::SetCursorLocation(std::int32_t location) {
  constexpr std::int32_t kServerSide = 2;
  RequireNotClosed();
  if (state_ == State::kOpen) {
    Raise(error_number::kInvalidCall, "the cursor location of a recordset that is open cannot be set");
  }
  if (location != kClientSide && location != kServerSide) {
    Raise(error_number::kWrongArguments, Join("cursor location ", location, " is neither 2 nor 3"));
  }
}

void MemoryRecordset::Open() {
  RequireNotClosed();
  if (state_ == State::kOpen) Raise(error_number::kInvalidCall, "the recordset is open already");
  if (fields_.empty()) Raise(error_number::kInvalidCall, "a recordset without fields cannot be opened");
  state_ = State::kOpen;
}

void MemoryRecordset::AddNew() {
  RequireOpen();
  EndRow();
  place_ = rows_.Append();
  is_adding_ = true;
  is_on_added_row_ = true;
}

void MemoryRecordset::Update() {
  RequireOpen();
  EndRow();
}

void MemoryRecordset::EndRow() {
  if (!is_adding_) return;
  is_adding_ = false;
  ++standing_rows_;
}

void MemoryRecordset::Close() {
  RequireOpen();
  state_ = State::kClosed;
  filtered_.Start(nullptr, nullptr);
  indexes_.clear();
  fields_.clear();
  field_names_.clear();
  place_ = {};
  rows_ = RowStore();
}

// --- Cursor

std::int32_t MemoryRecordset::RecordCount() const {
  RequireOpen();
  return is_filtered_ ? filtered_.Count(standing_rows_) : standing_rows_;
}

bool MemoryRecordset::Eof() const {
  RequireOpen();
  return !place_ && position_ >= 0;
}

std::int32_t MemoryRecordset::RowAt(std::int32_t position) const {
  if (is_filtered_) return filtered_.At(position, standing_rows_);
  return position < standing_rows_ ? position : RowIndex::kNoRow;
}

void MemoryRecordset::GoTo(std::int32_t position) {
  is_on_added_row_ = false;
  const std::int32_t row = position < 0 ? RowIndex::kNoRow : RowAt(position);
  place_ = row == RowIndex::kNoRow ? RowPlace{} : rows_.At(row);
  position_ = place_ || position < 0 ? position : RecordCount();
}

std::int32_t MemoryRecordset::Position() const {
  if (!is_on_added_row_) return position_;
  const std::int32_t last = RecordCount() - 1;
  const bool passes = last >= 0 && RowAt(last) == standing_rows_ - 1;
  return passes ? last : last + 1;
}

void MemoryRecordset::MoveFirst() {
  RequireOpen();
  EndRow();
  GoTo(0);
}

void MemoryRecordset::MoveNext() {
  RequireOpen();
  EndRow();
  if (Eof()) RaiseNoRow("MoveNext");
  // Behind the row last added there is none, whether it passes or not.
  GoTo(is_on_added_row_ ? RecordCount() : position_ + 1);
}

void MemoryRecordset::Move(std::int32_t rows) {
  RequireOpen();
  EndRow();
  const bool is_before_first = !place_ && position_ < 0;
  if (!place_ && (rows == 0 || (rows < 0 ? is_before_first || RecordCount() == 0 : !is_before_first))) {
    RaiseNoRow(Join("Move ", rows));
  }
  const std::int64_t target = std::int64_t{Position()} + rows;
  if (rows != 0) {
    GoTo(static_cast<std::int32_t>(
        std::clamp<std::int64_t>(target, -1, std::numeric_limits<std::int32_t>::max())));
  }
}

// --- Filter

void MemoryRecordset::SetFilter(std::string_view criteria) {
  RequireOpen();
  EndRow();
  next_filter_->Bind(criteria, *this);
  std::swap(filter_, next_filter_);
  is_filtered_ = !filter_->IsEmpty();
  filter_text_.assign(is_filtered_ ? criteria : std::string_view());
  filtered_.Start(filter_.get(), is_filtered_ ? IndexFor(*filter_) : nullptr);
  GoTo(0);
}

std::string MemoryRecordset::Filter() const {
  RequireOpen();
  return filter_text_;
}

RowIndex* MemoryRecordset::IndexFor(const RowFilter& filter) {
  const std::span<const int> columns = filter.KeyColumns();
  if (columns.empty()) return nullptr;
  for (const auto& index : indexes_) {
    if (std::ranges::equal(index->Columns(), columns)) return index.get();
  }
  indexes_.push_back(std::make_unique<RowIndex>(rows_, columns));
  return indexes_.back().get();
}

void MemoryRecordset::ForgetColumn(int field) {
  if (is_filtered_ && filter_->Uses(field)) static_cast<void>(filtered_.Count(standing_rows_));
  std::erase_if(indexes_, [this, field](const std::unique_ptr<RowIndex>& index) {
    if (std::ranges::find(index->Columns(), field) == index->Columns().end()) return false;
    if (filtered_.UsesIndex(*index)) filtered_.LeaveIndex(standing_rows_);
    return true;
  });
}

// --- Errors

void MemoryRecordset::RaiseNotOpen() const {
  Raise(error_number::kClosedRecordset,
        state_ == State::kClosed ? "the recordset was closed" : "the recordset was never opened");
}

void MemoryRecordset::RaiseNoCell(int field) const {
  RequireOpen();
  const std::string name = Field(field).name;
  RaiseNoRow(Join("field ", name));
}

void MemoryRecordset::RaiseNoRow(std::string_view what) const {
  Raise(error_number::kNoCurrentRow,
        Join(what, " needs a current row, and the recordset stands ",
             position_ < 0 ? "before its first" : "behind its last", " of ", RecordCount(), " rows"));
}

void MemoryRecordset::RaiseNull(int field) const {
  Raise(error_number::kInvalidNull, Join("field ", Field(field).name, " is null where a value was expected"));
}

void MemoryRecordset::RaiseTooLong(int field, std::string_view value) const {
  Raise(error_number::kWrongArguments,
        Join("field ", Field(field).name, " takes texts of ", Field(field).size, " characters, and ",
             Shown(value), " is longer"));
}

}  // namespace salerpt
