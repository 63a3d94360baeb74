#include <array>
#include <span>

#include "runtime/dictionary.h"
#include "runtime/mrpt.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVEBCBASE.UserProfile`: the settings of the user who is logged in, a dictionary for each section of a
// profile.
class UserProfile final : public SuiteObject<UserProfile> {
 public:
  static constexpr std::string_view kClassName = "ORVEBCBASE.UserProfile";
  using SuiteObject::SuiteObject;

  // Reads a section in place of the one that was read before. One that nobody has written to is empty.
  static Variant Load(UserProfile& self, Arguments arguments) {
    self.profile_ = arguments[0].TextOrEmpty();
    self.section_ = arguments[1].TextOrEmpty();
    self.values_ = std::make_shared<Dictionary>();
    const RecordsetRef rows = self.GetServer().Query(
        Join("Select FKey,FValue From t_UserProfile Where FUserID=", self.GetServer().GetLogin().user_id,
             " And FProfile=", QuoteSql(self.profile_), " And FSection=", QuoteSql(self.section_),
             " Order By FKey"));
    for (; !rows->Eof(); rows->MoveNext()) {
      self.values_->Set(rows->Value(0).TextOrEmpty(), rows->Value(1).TextOrEmpty());
    }
    return {};
  }

  static Variant GetDictionary(UserProfile& self, Arguments /*arguments*/) { return self.values_; }

  // Writes what the dictionary holds back to the section. Settings that it does not hold stay, so that two
  // windows of the user do not undo one another's.
  static Variant Save(UserProfile& self, Arguments /*arguments*/) {
    std::string text;
    for (const Dictionary::Entry& entry : self.values_->Entries()) {
      Append(text, "Delete From t_UserProfile Where FUserID=", self.GetServer().GetLogin().user_id,
             " And FProfile=", QuoteSql(self.profile_), " And FSection=", QuoteSql(self.section_),
             " And FKey=", QuoteSql(entry.key), "\r\n",
             "Insert Into t_UserProfile(FUserID,FProfile,FSection,FKey,FValue) Values (",
             self.GetServer().GetLogin().user_id, ",", QuoteSql(self.profile_), ",", QuoteSql(self.section_),
             ",", QuoteSql(entry.key), ",", QuoteText(entry.value, true, false), ")\r\n");
    }
    if (!text.empty()) self.GetServer().ExecuteWhole(text);
    return {};
  }

  static std::span<const Member<UserProfile>> Members() {
    static constexpr std::array<Member<UserProfile>, 3> kMembers{{
        {"Load", InvokeKind::kMethod, "(profile As String, section As String)", Load, 2},
        {"Dictionary", InvokeKind::kGet, "() As Dictionary", GetDictionary},
        {"Save", InvokeKind::kMethod, "()", Save},
    }};
    return kMembers;
  }

 private:
  std::string profile_;
  std::string section_;
  DictionaryRef values_ = std::make_shared<Dictionary>();
};

}  // namespace

ObjectRef MakeUserProfile(ServerRef server) {
  return std::make_shared<UserProfile>(std::move(server));
}

}  // namespace salerpt::middletier
