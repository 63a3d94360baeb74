#include <array>
#include <span>

#include "runtime/text.h"
#include "suite/middletier/master_lists.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// The current row as a set of its own.
RecordsetRef CurrentRow(const Recordset& rows) {
  RecordsetRef row = MakeRecordset();
  for (int field = 0; field < rows.FieldCount(); ++field) {
    const FieldInfo& info = rows.Field(field);
    row->AppendField(info.name, info.type, info.size);
  }
  row->Open();
  row->AddNew();
  for (int field = 0; field < rows.FieldCount(); ++field) row->SetValue(field, rows.Value(field));
  row->Update();
  return row;
}

// `ORVBaseList.BaseList`: a list of the master data, of which the user picks a row.
class BaseList final : public SuiteObject<BaseList> {
 public:
  static constexpr std::string_view kClassName = "ORVBaseList.BaseList";
  using SuiteObject::SuiteObject;

  static Variant GetKeyWord(BaseList& self, Arguments /*arguments*/) { return self.key_word_; }
  static Variant LetKeyWord(BaseList& self, Arguments arguments) {
    self.key_word_ = arguments[0].TextOrEmpty();
    return {};
  }
  static Variant GetFilter(BaseList& self, Arguments /*arguments*/) { return self.filter_; }
  static Variant LetFilter(BaseList& self, Arguments arguments) {
    self.filter_ = arguments[0].TextOrEmpty();
    return {};
  }

  // The row that the user picked, as a set; nothing where he cancelled.
  static Variant Show(BaseList& self, Arguments arguments) {
    const Candidates candidates = self.List(arguments[0].ToInt32());
    if (!self.GetServer().Choose(candidates)) return nullptr;
    return CurrentRow(*candidates.list.rows);
  }

  static std::span<const Member<BaseList>> Members() {
    static constexpr std::array<Member<BaseList>, 5> kMembers{{
        {"KeyWord", InvokeKind::kGet, "() As String", GetKeyWord},
        {"KeyWord", InvokeKind::kLet, "(search As String)", LetKeyWord, 1},
        {"Filter", InvokeKind::kGet, "() As String", GetFilter},
        {"Filter", InvokeKind::kLet, "(condition As String)", LetFilter, 1},
        {"Show", InvokeKind::kMethod, "(itemClassID As Long, mode As Long) As Recordset", Show, 2},
    }};
    return kMembers;
  }

 private:
  // Items are listed by their batches where it is batches that the filter asks about.
  [[nodiscard]] Candidates List(std::int32_t item_class) {
    constexpr std::int32_t kItems = 4;
    if (item_class == kItems && UpperCase(filter_).find("FBATCHNO") != std::string::npos) {
      return BatchList(GetServer(), key_word_, filter_);
    }
    return ItemList(GetServer(), item_class, key_word_, filter_, CodeInUse::kLong);
  }

  std::string key_word_;
  std::string filter_;
};

}  // namespace

ObjectRef MakeBaseList(ServerRef server) {
  return std::make_shared<BaseList>(std::move(server));
}

}  // namespace salerpt::middletier
