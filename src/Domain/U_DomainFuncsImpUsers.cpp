#include <algorithm>

#include "Domain/U_DomainFuncsImp.h"
#include "Frame/Commlib.h"
#include "Frame/Session.h"

namespace zanrole {

namespace {

constexpr const char* kLargestOID = "select max(OID) NewID from STUsers";

// clang-format off
// Oracle and MySQL: identity, creator, now, name of the creator.
constexpr const char* kInsertEmptyUser =
    "insert into STUsers(OID, Creator, CreateTime, CreatorName) values(%d, %d, %s, %s)";

// SQL Server, inside a batch that also gives the result: creator, name of the creator.
constexpr const char* kInsertEmptyUserInBatch =
    "insert into STUsers(OID, Creator, CreateTime, CreatorName) "
    "select IsNull(max(oid),0)+1, %d, GetDate(), %s from STUsers;";

constexpr const char* kInsertUser =
    " insert into STUsers(OID, UserID, UserName, UserDesc, uGroup, IsAdministrator , UnUsed, EmpowermentRight, "
    "Creator, CreateTime, CreatorName) "
    "select IsNull(max(OID),0) + 1, %s, %s, %s, %d, %d, %d, %d, %d, %s, %s from STUsers ";

constexpr const char* kFindUser = "select OID from STUsers where UserID = %s and UserName = %s and uGroup = %d";
// An empty text is null on Oracle.
constexpr const char* kFindUserWithoutLogin =
    "select OID from STUsers where UserID is null and UserName = %s and uGroup = %d";
// clang-format on

int NewUserInTwoSteps(TZANQuery& query) {
  const int newID = NextIdentity(query, kLargestOID);
  const char* now = DbHelper_IsOracle() ? "SysDate" : "Now()";
  ExecStatement(query, Format(kInsertEmptyUser, {newID, OperatorOID(), now, QuotedStr(OperatorName())}));
  return newID;
}

int NewUserInOneBatch(TZANQuery& query) {
  TStringList& sql = query.SQL();
  sql.Clear();
  sql.Add("begin");
  sql.Add(Format(kInsertEmptyUserInBatch, {OperatorOID(), QuotedStr(OperatorName())}));
  sql.Add("select max(OID) NewID from STUsers;");
  sql.Add("end;");
  query.Open();
  return query.Fields(0).AsInteger();
}

std::string FindUserStatement(const std::string& quotedUserID, const std::string& quotedUserName,
                              int uGroup) {
  if (quotedUserID == "''" && DbHelper_IsOracle())
    return Format(kFindUserWithoutLogin, {quotedUserName, uGroup});
  return Format(kFindUser, {quotedUserID, quotedUserName, uGroup});
}

}  // namespace

int GetNewUserOID() {
  const auto query = TDbProviderFactory::GetQuery();
  const bool twoSteps = DbHelper_IsOracle() || DbHelper_IsMySql();
  return twoSteps ? NewUserInTwoSteps(*query) : NewUserInOneBatch(*query);
}

int CreateNewUser(const std::string& userID, const std::string& userName, const std::string& userDesc,
                  int uGroup, int isAdministrator, int unUsed, int empowermentRight) {
  const std::string quotedID = QuotedStr(userID);
  const std::string quotedName = QuotedStr(userName);
  const auto query = TDbProviderFactory::GetQuery();
  // The null function is rewritten before the values are joined: a value is stored as it was entered.
  ExecStatement(*query, Format(NullFuncRewrite(kInsertUser),
                               {quotedID, quotedName, QuotedStr(userDesc), uGroup, isAdministrator, unUsed,
                                empowermentRight, OperatorOID(), DBCurDateStr(), QuotedStr(OperatorName())}));
  // No dialect hands the identity back.
  OpenStatement(*query, FindUserStatement(quotedID, quotedName, uGroup));
  return query->Eof() ? -1 : query->FieldByName("OID").AsInteger();
}

// The quota of a domain counts the users and managers whom it or a domain below it owns.

namespace {

constexpr const char* kDomainQuota = "select ParentID, UserLimit, FullName from STDomains where ID = %d";

// clang-format off
constexpr const char* kCountUsersOfSubtree =
    "select count(distinct UserOID) UserCount from STDomainMembers where MemberType in (0,2) and IsOwned = 1 "
    "and DomainID in ( select DescendantID from STDomainInherits where AncestorID = %d )";
// clang-format on

int UsersOfSubtree(TZANQuery& query, int domainID) {
  OpenStatement(query, Format(kCountUsersOfSubtree, {domainID}));
  return query.Eof() ? 0 : query.FieldByName("UserCount").AsInteger();
}

}  // namespace

bool CheckUserLimit(int domainID, int usersToAdd, std::string& overQuotaDomain) {
  const int added = std::max(usersToAdd, 0);
  const auto query = TDbProviderFactory::GetQuery();
  while (domainID >= 0) {
    OpenStatement(*query, Format(kDomainQuota, {domainID}));
    if (query->Eof()) return true;
    const int parentID = query->FieldByName("ParentID").AsInteger();
    const int userLimit = query->FieldByName("UserLimit").AsInteger();
    const std::string fullName = query->FieldByName("FullName").AsString();
    if (userLimit > 0 && userLimit - added < UsersOfSubtree(*query, domainID)) {
      overQuotaDomain = fullName;
      return false;
    }
    domainID = parentID;
  }
  return true;
}

}  // namespace zanrole
