#include "Role/RoleDataProvider.h"

#include <utility>
#include <vector>

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"
#include "Frame/WaitCursor.h"

namespace zanrole {

namespace {

// clang-format off
constexpr const char* kLargestOID = "Select Max(OID) as MID From STUsers";

constexpr const char* kInsertUser =
    "Insert Into STUsers (OID, UserID, UserName, UserDesc, Password, uGroup, UnUsed"
    " , IsAdministrator, Property1, Property2, Categories"
    " , DomainUserName, Creator, CreatorName, CreateTime)"
    " Values (:OID, :UserID, :UserName, :UserDesc, :Password, :uGroup, :UnUsed"
    " , :IsAdministrator, :Property1, :Property2, :Categories"
    " , :DomainUserName, :Creator, :CreatorName, :CreateTime)";

constexpr const char* kUpdateUser =
    "Update STUsers Set UserID=:UserID, UserName=:UserName, UserDesc=:UserDesc, uGroup=:uGroup, UnUsed=:UnUsed,"
    " IsAdministrator=:IsAdministrator, Property1=:Property1, Property2=:Property2, Categories=:Categories,"
    " DomainUserName=:DomainUserName, ModifierName=:ModifierName, ModifyTime=:ModifyTime"
    " Where OID=:OID";

constexpr const char* kInsertStrategy =
    "INSERT INTO STUserPasswordStrategy(UserID, NeedReset, CanModify, NeverExpires)"
    " VALUES(:UserID, :NeedReset, :CanModify, :NeverExpires)";

// A user may lack the row: the update is followed by an insert for the case that it hit none.
constexpr const char* kSaveStrategyMySql = "call Mysql_Update_STUserPasswordStrategy(%s, %d, %d, %d)";
constexpr const char* kUpdateStrategy =
    "BEGIN Update STUserPasswordStrategy"
    " Set NeedReset = :NeedReset, CanModify = :CanModify, NeverExpires = :NeverExpires"
    " Where UserID = :UserID; ";

constexpr const char* kDeleteMemberships = "Delete From STUserGroup Where UserID=%d or GroupID=%d;";
constexpr const char* kInsertMemberships = "Insert Into STUserGroup (UserID, GroupID)";
constexpr const char* kMembership     = "select %d, %d %s union all";
constexpr const char* kLastMembership = "select %d, %d %s;";
// clang-format on

/// A member's `OID` and that of his role.
using TMembership = std::pair<int, int>;

void AddInsert(TStringList& statements, const std::vector<TMembership>& memberships) {
  if (memberships.empty()) return;
  const std::string suffix = DualSuffix();
  statements.Add(kInsertMemberships);
  for (const TMembership& membership : memberships) {
    const bool last = &membership == &memberships.back();
    statements.Add(
        Format(last ? kLastMembership : kMembership, {membership.first, membership.second, suffix}));
  }
}

std::string UpdateOrInsertStrategy() {
  const auto functions = TDbHelperProviderFactory::GetDBFunctionsHelper();
  return kUpdateStrategy +
         functions->ConditionalStatement(functions->RowCountExpression() + " = 0",
                                         std::string(kInsertStrategy) + ";") +
         functions->ConditionalEnd() + "END;";
}

/// The statements stand in the call as they are, not as a quoted text.
void WrapInPlace(TStringList& statements) {
  const bool mySql = DbHelper_IsMySql();
  statements.Insert(0, mySql ? "call MySql_execute_MultiSql(" : "begin");
  statements.Add(mySql ? ")" : "end;");
}

}  // namespace

TRoleDataProvider::TRoleDataProvider() : FOprateQuery(TDbProviderFactory::GetQuery()) {}

int TRoleDataProvider::GetOID() { return NextIdentity(*FOprateQuery, kLargestOID); }

void TRoleDataProvider::SaveUserInfo(TUserInfo& user, bool saveParents, bool saveChildren) {
  const TWaitCursor cursor;
  if (user.newUser)
    Insert(user);
  else
    Update(user);
  if (saveParents || saveChildren) SaveMemberships(user, saveParents, saveChildren);
}

void TRoleDataProvider::Insert(TUserInfo& user) {
  if (user.oID == 0) user.oID = GetOID();
  Prepare(kInsertUser);
  SetOwnFields(user);
  FOprateQuery->ParamByName("Password").AsString(user.Password);
  FOprateQuery->ParamByName("Creator").AsInteger(user.Creator);
  FOprateQuery->ParamByName("CreatorName").AsString(user.CreatorName);
  FOprateQuery->ParamByName("CreateTime").AsDateTime(user.CreateTime);
  FOprateQuery->ExecSQL();
  user.newUser = false;
  if (user.uType == utUser) InsertStrategy(user);
}

void TRoleDataProvider::Update(const TUserInfo& user) {
  Prepare(kUpdateUser);
  SetOwnFields(user);
  FOprateQuery->ParamByName("ModifierName").AsString(user.ModifierName);
  if (user.ModifyTime != TDateTime{}) FOprateQuery->ParamByName("ModifyTime").AsDateTime(user.ModifyTime);
  FOprateQuery->ExecSQL();
  if (user.uType == utUser) SaveStrategy(user);
}

void TRoleDataProvider::InsertStrategy(const TUserInfo& user) {
  Prepare(kInsertStrategy);
  SetStrategyFields(user);
  FOprateQuery->ExecSQL();
}

void TRoleDataProvider::SaveStrategy(const TUserInfo& user) {
  if (DbHelper_IsMySql()) {
    Prepare(Format(kSaveStrategyMySql,
                   {QuotedStr(user.ID), int{user.NeedReset}, int{user.CanModify}, int{user.NeverExpires}}));
  } else {
    Prepare(UpdateOrInsertStrategy());
    SetStrategyFields(user);
  }
  FOprateQuery->ExecSQL();
}

void TRoleDataProvider::SaveMemberships(const TUserInfo& user, bool saveParents, bool saveChildren) {
  std::vector<TMembership> ofRoles;
  std::vector<TMembership> ofMembers;
  if (saveParents)
    for (const TUserInfo* role : user.FParentList) ofRoles.emplace_back(user.oID, role->oID);
  if (saveChildren)
    for (const TUserInfo* member : user.FChildList) ofMembers.emplace_back(member->oID, user.oID);

  FOprateQuery->Params().Clear();
  TStringList& statements = FOprateQuery->SQL();
  statements.Clear();
  statements.Add(Format(kDeleteMemberships, {user.oID, user.oID}));
  AddInsert(statements, ofRoles);
  AddInsert(statements, ofMembers);
  WrapInPlace(statements);
  FOprateQuery->ExecSQL();
}

void TRoleDataProvider::Prepare(std::string_view statement) {
  FOprateQuery->Close();
  FOprateQuery->Params().Clear();
  FOprateQuery->SQL().SetText(std::string(statement));
}

void TRoleDataProvider::SetOwnFields(const TUserInfo& user) {
  FOprateQuery->ParamByName("OID").AsInteger(user.oID);
  FOprateQuery->ParamByName("UserID").AsString(user.ID);
  FOprateQuery->ParamByName("UserName").AsString(user.Name);
  FOprateQuery->ParamByName("UserDesc").AsString(user.Describe);
  FOprateQuery->ParamByName("uGroup").AsInteger(user.uType);
  FOprateQuery->ParamByName("UnUsed").AsInteger(user.uState);
  FOprateQuery->ParamByName("IsAdministrator").AsInteger(user.isAdministrator ? 1 : 0);
  FOprateQuery->ParamByName("Property1").AsString(user.Property1);
  FOprateQuery->ParamByName("Property2").AsString(user.Property2);
  FOprateQuery->ParamByName("Categories").AsString(user.Categories);
  FOprateQuery->ParamByName("DomainUserName").AsString(user.DomainUserName);
}

void TRoleDataProvider::SetStrategyFields(const TUserInfo& user) {
  const auto setBoolean = [this](std::string_view name, bool value) {
    TDbHelperProviderFactory::GetDBParamHelper()->SetBoolean(FOprateQuery->ParamByName(name), value);
  };
  FOprateQuery->ParamByName("UserID").AsString(user.ID);
  setBoolean("NeedReset", user.NeedReset);
  setBoolean("CanModify", user.CanModify);
  setBoolean("NeverExpires", user.NeverExpires);
}

}  // namespace zanrole
