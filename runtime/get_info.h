// `GetInfo`: what the host asks the module as a whole.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "runtime/mparse.h"
#include "runtime/object.h"

namespace salerpt {

// The properties of the login, cut for the host by the rules of `PropertyCollection`. Each object holds a
// text and a collection of its own; the process-wide ones (mparse.h) are not touched.
class GetInfo final : public Object {
 public:
  static constexpr std::string_view kClassName = "ORVSaleRpt.GetInfo";

  // The text last given to ParseString; empty before.
  [[nodiscard]] std::string PropsString() const;
  // The connection string of the login: its property "ConnectString".
  [[nodiscard]] const std::string& ConStr() const { return GetProperty("ConnectString"); }
  // Raises invalid call, naming it, for a name that the text does not hold, and object-not-set before
  // ParseString.
  [[nodiscard]] const std::string& GetProperty(std::string_view name) const;
  // Takes the text and throws away what an earlier one gave. Always true; raises duplicate-key for a name
  // given twice.
  bool ParseString(std::string_view text);

  [[nodiscard]] std::string_view ClassName() const override { return kClassName; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override;
  static std::span<const Member<GetInfo>> Members();

 private:
  std::unique_ptr<PropertyCollection> properties_;
};

}  // namespace salerpt
