#include "shell/recorded/empty_recordset.h"

#include <memory>
#include <string>

namespace salerpt::shell {
namespace {

constexpr const char* kSource = "ADODB.Recordset";

class EmptyRecordset final : public Recordset {
 public:
  [[nodiscard]] int FieldCount() const override { return 0; }
  [[nodiscard]] const FieldInfo& Field(int field) const override {
    throw RuntimeError(error_number::kNoSuchField, kSource,
                       Join("there is no field ", field, ": the set has no fields"));
  }
  // Callers look their fields up before they walk the rows.
  [[nodiscard]] int FindField(std::string_view /*name*/) const override { return 0; }

  void AppendField(std::string_view name, FieldType /*type*/, std::int32_t /*size*/,
                   std::int32_t /*attributes*/) override {
    RaiseReadOnly(Join("field ", name, " cannot be appended"));
  }
  void SetCursorLocation(std::int32_t /*location*/) override { RequireOpen(); }
  void Open() override { RaiseReadOnly("it cannot be opened again"); }
  void AddNew() override { RaiseReadOnly("a row cannot be added"); }
  void Update() override { RequireOpen(); }
  void Close() override {
    RequireOpen();
    is_open_ = false;
  }
  [[nodiscard]] bool IsOpen() const override { return is_open_; }

  [[nodiscard]] std::int32_t RecordCount() const override {
    RequireOpen();
    return 0;
  }
  [[nodiscard]] bool Eof() const override {
    RequireOpen();
    return true;
  }
  void MoveFirst() override { RequireOpen(); }
  void MoveNext() override { RaiseNoRow(); }
  void Move(std::int32_t /*rows*/) override { RaiseNoRow(); }

  void SetFilter(std::string_view criteria) override {
    RequireOpen();
    filter_ = criteria;
  }
  [[nodiscard]] std::string Filter() const override { return filter_; }

  using Recordset::SetValue;
  using Recordset::Value;
  [[nodiscard]] Variant Value(int /*field*/) const override { RaiseNoRow(); }
  void SetValue(int /*field*/, const Variant& /*value*/) override { RaiseNoRow(); }
  [[nodiscard]] std::string_view Text(int /*field*/) const override { RaiseNoRow(); }

 private:
  void RequireOpen() const {
    if (!is_open_) throw RuntimeError(error_number::kClosedRecordset, kSource, "the recordset is closed");
  }
  [[noreturn]] void RaiseNoRow() const {
    RequireOpen();
    throw RuntimeError(error_number::kNoCurrentRow, kSource, "the recordset has no rows");
  }
  [[noreturn]] void RaiseReadOnly(const std::string& what) const {
    RequireOpen();
    throw RuntimeError(error_number::kWrongArguments, kSource,
                       "the recordset is empty and stays so: " + what);
  }

  bool is_open_ = true;
  std::string filter_;
};

}  // namespace

RecordsetRef MakeEmptyRecordset() {
  return std::make_shared<EmptyRecordset>();
}

}  // namespace salerpt::shell
