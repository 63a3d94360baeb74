#include "runtime/get_info.h"

#include <array>
#include <utility>

#include "runtime/error.h"

namespace salerpt {

std::string GetInfo::PropsString() const {
  return properties_ ? properties_->Text() : std::string();
}

const std::string& GetInfo::GetProperty(std::string_view name) const {
  if (properties_) return properties_->Get(name);
  throw RuntimeError(error_number::kObjectNotSet, "GetInfo",
                     Join("property \"", name, "\" was asked for before a property string was parsed"));
}

bool GetInfo::ParseString(std::string_view text) {
  // In place before it reads: after a failure nobody finds the properties of an earlier login.
  auto fresh = std::make_unique<PropertyCollection>();
  const std::unique_ptr<PropertyCollection> earlier = std::exchange(properties_, std::move(fresh));
  properties_->Parse(text);
  return true;
}

std::span<const Member<GetInfo>> GetInfo::Members() {
  static constexpr std::array<Member<GetInfo>, 4> kMembers{{
      {"PropsString", InvokeKind::kGet, "() As String",
       [](GetInfo& self, Arguments) -> Variant { return self.PropsString(); }},
      {"ConStr", InvokeKind::kGet, "() As String",
       [](GetInfo& self, Arguments) -> Variant { return self.ConStr(); }},
      {"GetProperty", InvokeKind::kMethod, "(sPropName As String) As String",
       [](GetInfo& self, Arguments arguments) -> Variant { return self.GetProperty(arguments[0].ToText()); },
       1},
      {"ParseString", InvokeKind::kMethod, "(sToParse As String) As Boolean",
       [](GetInfo& self, Arguments arguments) -> Variant { return self.ParseString(arguments[0].ToText()); },
       1},
  }};
  return kMembers;
}

Variant GetInfo::Invoke(std::string_view member, InvokeKind kind, Arguments arguments) {
  return Dispatch(*this, Members(), member, kind, arguments);
}

}  // namespace salerpt
