#include <array>
#include <span>

#include "suite/middletier/log_line.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVEBCGLView.GLData`: rights and log of the user who is logged in.
class GLData final : public SuiteObject<GLData> {
 public:
  static constexpr std::string_view kClassName = "ORVEBCGLView.GLData";
  using SuiteObject::SuiteObject;

  // Whether the user has a right, named by its three numbers. What the account set does not deny is allowed.
  static Variant AccessCheck(GLData& self, Arguments arguments) {
    const RecordsetRef denied = self.GetServer().Query(
        Join("Select FAllowed From t_FieldRight Where FAllowed=0 And FUserID=",
             self.GetServer().GetLogin().user_id, " And FSubSysID=", arguments[0].ToInt32(),
             " And FObjectID=", arguments[1].ToInt32(), " And FRight=", arguments[2].ToInt32()));
    return denied->RecordCount() == 0;
  }

  // One line in the log of the account set, with the time and the user.
  static Variant WriteLog(GLData& self, Arguments arguments) {
    WriteLogLine(self.GetServer(), arguments[0].TextOrEmpty(), arguments[1].ToInt32(),
                 arguments[2].TextOrEmpty());
    return {};
  }

  // Forgets what look-ups have read. Nothing is kept between two calls here, so there is nothing to forget.
  static Variant Refresh(GLData& /*self*/, Arguments /*arguments*/) { return {}; }

  static std::span<const Member<GLData>> Members() {
    static constexpr std::array<Member<GLData>, 3> kMembers{{
        {"AccessCheck", InvokeKind::kMethod, "(system As Long, object As Long, right As Long) As Boolean",
         AccessCheck, 3},
        {"WriteLog", InvokeKind::kMethod, "(key As String, kind As Long, text As String)", WriteLog, 3},
        {"Refresh", InvokeKind::kMethod, "()", Refresh},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeGLData(ServerRef server) {
  return std::make_shared<GLData>(std::move(server));
}

}  // namespace salerpt::middletier
