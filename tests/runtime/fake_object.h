// An object whose members are written in the test, for what a ProgID makes in the field.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/object.h"
#include "runtime/runtime.h"
#include "runtime/text.h"

namespace salerpt::testing {

// A call as it arrived: the arguments are copies, as they were before the member ran.
struct RecordedCall {
  std::string object;
  std::string member;
  InvokeKind kind;
  std::vector<Variant> arguments;
};

// Members are found without regard to case and answer a method call and a read alike; an assignment has a
// handler of its own. A member without a handler raises no-such-member. Calls are recorded in the object, and
// in `log` where one is given: several objects that share a log tell the order among them.
class FakeObject final : public Object {
 public:
  using Handler = std::function<Variant(Arguments)>;
  using Log = std::vector<RecordedCall>;

  explicit FakeObject(std::string class_name, std::shared_ptr<Log> log = nullptr)
      : class_name_(std::move(class_name)), log_(std::move(log)) {}

  FakeObject& On(std::string member, Handler handler) {
    members_.insert_or_assign(std::move(member), std::move(handler));
    return *this;
  }
  FakeObject& OnAssign(std::string member, Handler handler) {
    assigned_.insert_or_assign(std::move(member), std::move(handler));
    return *this;
  }
  FakeObject& Gives(std::string member, Variant value) {
    return On(std::move(member), [value = std::move(value)](Arguments) { return value; });
  }
  FakeObject& Raises(std::string member, RuntimeError error) {
    return On(std::move(member), [error = std::move(error)](Arguments) -> Variant { throw error; });
  }

  [[nodiscard]] const std::vector<RecordedCall>& Calls() const { return calls_; }
  // The names of the members called, in order.
  [[nodiscard]] std::vector<std::string> CalledMembers() const {
    std::vector<std::string> names;
    for (const RecordedCall& call : calls_) names.push_back(call.member);
    return names;
  }

  [[nodiscard]] std::string_view ClassName() const override { return class_name_; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    const RecordedCall call{class_name_, std::string(member), kind, {arguments.begin(), arguments.end()}};
    calls_.push_back(call);
    if (log_) log_->push_back(call);
    const bool assigns = kind == InvokeKind::kLet || kind == InvokeKind::kSet;
    const auto& members = assigns ? assigned_ : members_;
    const auto found = members.find(member);
    if (found == members.end()) RaiseNoSuchMember(*this, member);
    // A copy: the handler may give the object another one.
    const Handler handler = found->second;
    return handler(arguments);
  }

 private:
  using Members = std::map<std::string, Handler, NameLess>;

  std::string class_name_;
  std::shared_ptr<Log> log_;
  Members members_;
  Members assigned_;
  std::vector<RecordedCall> calls_;
};

using FakeRef = std::shared_ptr<FakeObject>;

// Registers one fake under a ProgID: each making gives the same object. `made`, where given, counts the
// makings.
inline FakeRef RegisterFake(Runtime& runtime, const std::string& prog_id,
                            std::shared_ptr<FakeObject::Log> log = nullptr, int* made = nullptr) {
  auto fake = std::make_shared<FakeObject>(prog_id, std::move(log));
  runtime.Register(prog_id, [fake, made]() -> ObjectRef {
    if (made != nullptr) ++*made;
    return fake;
  });
  return fake;
}

// A login whose property string is `props`: a host object that gives it, with the user's name.
inline FakeRef LogIn(Runtime& runtime, const std::string& props, const std::string& user_name = "abc") {
  auto host = std::make_shared<FakeObject>("Host");
  host->Gives("PropsString", props).Gives("UserName", user_name);
  runtime.host_object = host;
  return host;
}

}  // namespace salerpt::testing
