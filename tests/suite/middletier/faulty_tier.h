// A middle tier that fails, or answers other rows, where a test tells it to.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "runtime/recordset.h"
#include "runtime/runtime.h"

namespace salerpt::middletier {

// Stands before every object of a middle tier that is registered already. Makings of objects and calls on
// them are counted together, from 1: either can fail.
class FaultyTier : public std::enable_shared_from_this<FaultyTier> {
 public:
  static constexpr std::int32_t kNumber = -2147217900;
  static constexpr const char* kText = "服务器没有响应";
  static constexpr const char* kSource = "Server";

  // Puts itself before the objects of the world.
  void Register(Runtime& runtime);

  // Begins to count anew; the call of number `fail_at` fails, none with 0.
  void Restart(int fail_at = 0);
  // What has been called since: "ORVMSaleRpt.Data" for a making, "ORVMSaleRpt.Data.GetData" for a call.
  [[nodiscard]] const std::vector<std::string>& Calls() const { return calls_; }
  // What becomes of each row set that an object answers, alone or in a dictionary, or fills, in the call of
  // this number.
  using Change = std::function<void(int call, RecordsetRef& rows)>;
  void SetChange(Change change) { change_ = std::move(change); }
  // Objects of the middle tier and row sets answered by it that somebody still holds.
  [[nodiscard]] int Alive() const;

 private:
  class FaultyObject;
  void Count(const std::string& call);
  void Answered(Variant& value);

  std::vector<std::string> calls_;
  int fail_at_ = 0;
  Change change_;
  std::vector<std::weak_ptr<Object>> given_;
};

// The same fields without a row.
void TakeRowsAway(RecordsetRef& rows);
// The same rows; each value is null for whose field `is_null` says so, asked row by row.
void MakeNull(RecordsetRef& rows, const std::function<bool(const FieldInfo& field)>& is_null);

}  // namespace salerpt::middletier
