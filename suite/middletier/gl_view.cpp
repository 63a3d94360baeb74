#include <array>
#include <memory>
#include <span>
#include <utility>

#include "runtime/dictionary.h"
#include "suite/middletier/master_lists.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// The row of the master data that the user has picked.
class PickedRow final : public Object {
 public:
  static constexpr std::string_view kClassName = "ORVEBCGLView.BaseData";
  // The current row of the set.
  explicit PickedRow(const Recordset& rows) {
    for (int field = 0; field < rows.FieldCount(); ++field)
      values_.Set(rows.Field(field).name, rows.Value(field));
  }

  [[nodiscard]] std::string_view ClassName() const override { return kClassName; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    // clang-format off
    static constexpr std::array<Member<PickedRow>, 4> kMembers{{
        {"Number", InvokeKind::kGet, "() As String",
         [](PickedRow& self, Arguments) { return self.Value("FNumber"); }},
        {"Name", InvokeKind::kGet, "() As String",
         [](PickedRow& self, Arguments) { return self.Value("FName"); }},
        {"ItemID", InvokeKind::kGet, "() As Long",
         [](PickedRow& self, Arguments) { return self.Value("FItemID"); }},
        {"Properties", InvokeKind::kGet, "(name As String) As Variant",
         [](PickedRow& self, Arguments name) { return self.Value(name[0].ToText()); }, 1},
    }};
    // clang-format on
    return Dispatch<PickedRow>(*this, kMembers, member, kind, arguments);
  }

 private:
  [[nodiscard]] Variant Value(std::string_view name) const {
    if (values_.Lookup(name)) return values_.Get(name);
    throw RuntimeError(error_number::kNoSuchField, std::string(kClassName),
                       Join("there is no property \"", name, "\""));
  }

  Dictionary values_;
};

// A look-up that the user has left.
class LookUp final : public Object {
 public:
  static constexpr std::string_view kClassName = "ORVEBCGLView.LookUp";
  // `picked` is nothing where the user has cancelled.
  explicit LookUp(std::shared_ptr<PickedRow> picked) : picked_(std::move(picked)) {}

  [[nodiscard]] std::string_view ClassName() const override { return kClassName; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    static constexpr std::array<Member<LookUp>, 2> kMembers{{
        {"ReturnObject", InvokeKind::kGet, "() As Object",
         [](LookUp& self, Arguments) -> Variant { return self.picked_; }},
        {"returnok", InvokeKind::kGet, "() As Boolean",
         [](LookUp& self, Arguments) -> Variant { return self.picked_ != nullptr; }},
    }};
    return Dispatch<LookUp>(*this, kMembers, member, kind, arguments);
  }

 private:
  std::shared_ptr<PickedRow> picked_;
};

// `ORVEBCGLView.GLView`: the look-ups of the master data. Each asks the user for a row and gives what came of
// it.
class GLView final : public SuiteObject<GLView> {
 public:
  static constexpr std::string_view kClassName = "ORVEBCGLView.GLView";
  using SuiteObject::SuiteObject;

  // The options tell "BeShortNumber": the user knows the items by their short codes. Without any, it is the
  // classes that are offered and not what is sorted into them.
  static Variant ItemLookUp(GLView& self, Arguments arguments) {
    const std::int32_t item_class = arguments[0].ToInt32();
    if (arguments.size() == 1) return self.Ask(ItemClassList(self.GetServer(), item_class));
    const auto options = arguments.size() < 4 ? nullptr : As<Dictionary>(arguments[3]);
    const bool is_short = options && options->Get("BeShortNumber").ToBoolean();
    return self.Ask(ItemList(self.GetServer(), item_class, arguments[1].TextOrEmpty(),
                             arguments.size() < 3 ? std::string() : arguments[2].TextOrEmpty(),
                             is_short ? CodeInUse::kShort : CodeInUse::kLong));
  }

  static Variant UnitLookup(GLView& self, Arguments arguments) {
    return self.Ask(UnitList(self.GetServer(), arguments[0].ToInt32(), arguments[1].TextOrEmpty()));
  }

  static Variant SubMesLookup(GLView& self, Arguments arguments) {
    return self.Ask(AuxiliaryList(self.GetServer(), arguments[0].ToInt32(), arguments[1].TextOrEmpty()));
  }

  static Variant CurrencyLookup(GLView& self, Arguments arguments) {
    return self.Ask(CurrencyList(self.GetServer(), arguments[0].TextOrEmpty()));
  }

  // The account set has neither accounts nor ways of settlement: there is nothing to pick from.
  static Variant EmptyLookup(GLView& /*self*/, Arguments /*arguments*/) {
    return std::make_shared<LookUp>(nullptr);
  }

  static std::span<const Member<GLView>> Members() {
    static constexpr std::array<Member<GLView>, 6> kMembers{{
        {"ItemLookUp", InvokeKind::kMethod,
         "(itemClassID As Long, [search As String], [condition As String], [options As Dictionary]) As "
         "Object",
         ItemLookUp, 1, 4},
        {"UnitLookup", InvokeKind::kMethod, "(unitGroupID As Long, search As String) As Object", UnitLookup,
         2},
        {"SubMesLookup", InvokeKind::kMethod, "(itemClassID As Long, search As String) As Object",
         SubMesLookup, 2},
        {"CurrencyLookup", InvokeKind::kMethod, "(search As String) As Object", CurrencyLookup, 1},
        {"AccountLookup", InvokeKind::kMethod, "(search As String) As Object", EmptyLookup, 1},
        {"SettTypeLookup", InvokeKind::kMethod, "(search As String) As Object", EmptyLookup, 1},
    }};
    return kMembers;
  }

 private:
  Variant Ask(const Candidates& candidates) {
    if (!GetServer().Choose(candidates)) return std::make_shared<LookUp>(nullptr);
    return std::make_shared<LookUp>(std::make_shared<PickedRow>(*candidates.list.rows));
  }
};

}  // namespace

ObjectRef MakeGLView(ServerRef server) {
  return std::make_shared<GLView>(std::move(server));
}

}  // namespace salerpt::middletier
