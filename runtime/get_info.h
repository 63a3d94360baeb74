// `GetInfo`: what the host asks the module as a whole.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "runtime/dictionary.h"
#include "runtime/mparse.h"
#include "runtime/object.h"
#include "runtime/vector.h"

namespace salerpt {

// Services of the module for the host: the properties of the login, which functions of the navigation are
// visible in the present state of the system, and the key that opens the stock look-ups anywhere.
//
// The properties are cut by the rules of `PropertyCollection`. Each object holds a text and a collection of
// its own; the process-wide ones (mparse.h) are not touched. The questions on the system never raise: the
// navigation must come up whatever the middle tier does, and what cannot be found out reads as 0, false or
// nothing to change.
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

  // Which functions change their visibility at a refresh. Reads "FRefreshType" (2 a subsystem, 3 a function),
  // "FSubSysID" and "FSubFuncID" of the request and writes "DelAll" false into it. Gives a dictionary for
  // each function: "FVisible", and its id as text under "FSubFuncID" (type 2) or "FDetailFuncID" (type 3).
  // Also takes the login's property string as ParseString does.
  VectorRef GetRefreshFunc(const DictionaryRef& request);
  // The number of the module that is closed for a year end; 0 where none is.
  [[nodiscard]] std::int32_t GetCloseMoudle() const;
  // Whether the system has been started.
  [[nodiscard]] bool GetISStarted() const;
  // The host's global key handler. F12 opens the stock query and Shift+F12 the stock status, after a box
  // where the system has not been started or the user lacks the right.
  void IInputEventListener_OnKeyPressed(std::int16_t key, std::int16_t shift) const;

  [[nodiscard]] std::string_view ClassName() const override { return kClassName; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override;
  static std::span<const Member<GetInfo>> Members();

 private:
  void AddSubsystem(Vector& answer, std::int32_t subsystem) const;
  void AddDetails(Vector& answer, std::int32_t function) const;
  void OpenStockForm(std::string_view prog_id) const;

  std::unique_ptr<PropertyCollection> properties_;
};

}  // namespace salerpt
