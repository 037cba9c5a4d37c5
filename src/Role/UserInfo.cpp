#include "Role/UserInfo.h"

#include "Frame/Commlib.h"
#include "Frame/Now.h"
#include "Frame/Session.h"

namespace zanrole {

std::string UserTypeText(TUserType type) { return TZanResEx::resByExFunc(type == utRole ? "角色" : "用户"); }

std::string UserStateText(TUserState state) {
  if (state == usUsed) return TZanResEx::resByExFunc("可用");
  return state == usUnUsed ? TZanResEx::resByExFunc("不可用") : std::string();
}

TUserInfo::TUserInfo() : Creator(OperatorOID()), CreateTime(Now()), CreatorName(OperatorName()) {}

void TUserInfo::Assign(const TUserInfo& from) {
  const bool keptNewUser = newUser;
  const bool keptReadRelate = readRelate;
  *this = from;
  newUser = keptNewUser;
  readRelate = keptReadRelate;
}

}  // namespace zanrole
