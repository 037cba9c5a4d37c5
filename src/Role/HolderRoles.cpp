#include "Role/HolderRoles.h"

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"

namespace zanrole {

namespace {

constexpr const char* kRolesOfHolder =
    "Select u.OID as GroupID, u.UserName as GroupName From STUserGroup g, STUsers u "
    "Where g.UserID = %d And u.OID = g.GroupID";

}  // namespace

THolderRoles ReadHolderRoles(TZANQuery& query, int userID) {
  THolderRoles holder;
  holder.UserStr = "(" + std::to_string(userID);
  OpenStatement(query, Format(kRolesOfHolder, {userID}));
  for (; !query.Eof(); query.Next()) {
    THolderRole role{Trim(query.FieldByName("GroupID").AsString()),
                     Trim(query.FieldByName("GroupName").AsString())};
    holder.UserStr += ", " + role.GroupID;
    holder.Roles.push_back(std::move(role));
  }
  query.Close();
  holder.UserStr += ")";
  return holder;
}

}  // namespace zanrole
