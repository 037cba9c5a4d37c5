#include "Domain/DomainStatements.h"

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"

namespace zanrole {

namespace {

/// Joins the values of an insert or select.
std::string CommaJoin(std::initializer_list<std::string> values) {
  std::string joined;
  for (const std::string& value : values) {
    if (!joined.empty()) joined += ", ";
    joined += value;
  }
  return joined;
}

}  // namespace

// clang-format off

std::string SelectAllDomains() { return "select * from STDomains order by NodeLevel, Sequence"; }

std::string SelectDomainsOf(int operatorOID) {
  return R"(select distinct a.* from STDomains a
 inner join STDomainInherits b on a.ID = b.DescendantID
 inner join STDomainMembers c on b.AncestorID = c.DomainID
 where c.IsOwned = 1 and c.UserOID = )" + std::to_string(operatorOID) +
" order by a.NodeLevel, a.Sequence";
}

std::string SelectManagedDomains(int operatorOID) {
  return "select DomainID from STDomainMembers where MemberType = 2 and UserOID = " + std::to_string(operatorOID);
}

std::string SelectSameName(int parentID, int ownID, std::string_view name) {
  return "select 1 Found from STDomains where ParentID = " + std::to_string(parentID) +
         " and ID <> " + std::to_string(ownID) + " and Name = " + QuotedStr(name);
}

std::string SelectSameCode(int ownID, std::string_view code) {
  return "select 1 Found from STDomains where ID <> " + std::to_string(ownID) + " and Code = " + QuotedStr(code);
}

std::string SelectChildDomain(int id) {
  return Format("select 1 Found from STDomains where ParentID = %d", {id});
}

std::string SelectMember(int id) {
  return Format("select 1 Found from STDomainMembers where MemberType <> 3 and DomainID = %d", {id});
}

std::string SelectLastSequence(int parentID) {
  return Format("select max(Sequence) Sequence from STDomains where ParentID = %d", {parentID});
}

std::string SelectSequence(int id) {
  return "select Sequence from STDomains where ID = " + std::to_string(id);
}

std::string SelectPaths(int id) {
  return Format("select FullName, FullCode, NodeLevel from STDomains where ID = %d", {id});
}

std::string SelectByFullName(std::string_view fullName) {
  return "select ID, ParentCode from STDomains where FullName=" + QuotedStr(fullName);
}

std::string SelectNewPaths(int id) {
  const std::string domain = std::to_string(id);
  if (DbHelper_IsMySql()) return "CALL MySql_STDomainsGetFullName(" + domain + ")";
  const std::string op(ConcatOperator());
  return
"with cte(ID, ParentName, FullName) as ("
"  select ID, ParentName, ParentName " + op + " Name " + op + " '\\' "
"  from STDomains where ID = " + domain +
"  union all"
"  select a.ID, b.FullName, b.FullName " + op + " a.Name " + op + " '\\' "
"  from STDomains a inner join cte b on a.ParentID = b.ID"
" ) select * from cte";
}

std::string SelectOrgPath(int djLsh) {
  const std::string org = std::to_string(djLsh);
  if (DbHelper_IsMySql()) return "select get_UserFullDeptName(" + org + ") Name";
  const std::string op(ConcatOperator());
  const std::string type = DbHelper_IsOracle() ? "NVarChar2(2000)" : "NVarChar(2000)";
  return
"with T(Parent, Name) as ("
"  select Parent, cast(Name as " + type + ") from PartyH where DjLsh = " + org +
"  union all"
"  select a.Parent, cast(a.Name " + op + " '\\' " + op + " T.Name as " + type + ")"
"  from PartyH a inner join T on a.DjLsh = T.Parent"
" ) select Name from T order by Parent";
}

std::string InsertDomain(const TDomainRecord& domain) {
  const std::string op = " " + std::string(ConcatOperator()) + " ";
  const std::string idText =
      StringReplace("cast(a.NewID as varchar(16))", "varchar(", DbHelper_IsMySql() ? "char(" : "varchar(");
  const std::string fullCode = QuotedStr(domain.ParentCode) + op + idText + op + "'\\'";
  return
"insert into STDomains (ID, Code, Name, Remark, ParentID, NodeLevel, Sequence"
" , FullName, FullCode, ParentCode, ParentName, UserLimit, RelateOrg)"
" select a.NewID , " +
      CommaJoin({QuotedStr(domain.Code), QuotedStr(domain.Name), QuotedStr(domain.Remark),
                 std::to_string(domain.ParentID), std::to_string(domain.NodeLevel),
                 std::to_string(domain.Sequence), QuotedStr(domain.FullName), fullCode,
                 QuotedStr(domain.ParentCode), QuotedStr(domain.ParentName),
                 std::to_string(domain.UserLimit), std::to_string(domain.RelateOrg)}) +
      NullFuncRewrite(" from ( select IsNull(Max(ID),0) + 1 NewID from STDomains ) a");
}

std::string InsertCreator() {
  return "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(:DomainID, :UserOID, 3, 1)";
}

std::string InsertInherit() {
  return "insert into STDomainInherits(AncestorID, DescendantID) values(:AncestorID, :DescendantID)";
}

std::string InsertInheritsOfParent() {
  return R"(insert into STDomainInherits(AncestorID, DescendantID)
 select AncestorID, :DescendantID from STDomainInherits where DescendantID = :ParentID)";
}

std::string UpdateDomain(int id, const TDomainFields& fields, std::string_view fullName) {
  return "update STDomains set Name = " + QuotedStr(fields.Name) +
         " , Code = " + QuotedStr(fields.Code) +
         " , FullName = " + QuotedStr(fullName) +
         " , Remark = " + QuotedStr(fields.Remark) +
         " , UserLimit= " + std::to_string(fields.UserLimit) +
         " , RelateOrg= " + std::to_string(fields.RelateOrg) +
         " where ID = " + std::to_string(id);
}

// A role's UserID may hold the role's bare name behind two backslashes. Only the MySQL text is written for a
// server on which a backslash escapes.
std::string RenameRoles(int id, std::string_view fullName) {
  const std::string domain = std::to_string(id);
  if (DbHelper_IsOracle())
    return "update STUsers set UserName = " + QuotedStr(fullName) + R"( || '\' || 
  case left(UserID, 2) when '\\' then SUBSTR(UserID, 3, 100) else UserID end
 where uGroup = 1 and OID in (
 select UserOID from STDomainMembers where IsOwned = 1 and MemberType = 1 and DomainID = )" + domain + " )";
  if (DbHelper_IsMySql())
    return R"(update STUsers a
 inner join STDomainMembers b on a.OID = b.UserOID
 inner join STDomains c on b.DomainID = c.ID
 set UserName = concat(c.FullName, '\\',  case left(a.UserID, 2) when '\\\\' then SUBSTRing(a.UserID, 3, 100) else a.UserID end)
 where a.uGroup =1 and b.MemberType = 1 and b.IsOwned = 1 and c.ID = )" + domain;
  return R"(update STUsers
 set UserName = c.FullName + '\' +  case left(a.UserID, 2) when '\\' then SUBSTRing(a.UserID, 3, 100) else a.UserID end
 from STUsers a
 inner join STDomainMembers b on a.OID = b.UserOID
 inner join STDomains c on b.DomainID = c.ID
 where a.uGroup =1 and b.MemberType = 1 and b.IsOwned = 1 and c.ID = )" + domain;
}

TStringList DeleteDomainBatch(int id) {
  TStringList batch;
  for (const char* statement : {"delete from STDomains where ID = ",
                                "delete from STDomainInherits where DescendantID = ",
                                "delete from STDomainPermission where DomainID = ",
                                "delete from STDomainMembers where DomainID = "})
    batch.Add(statement + std::to_string(id) + ";");
  return batch;
}

std::string UpdatePaths(int id, std::string_view parentName, std::string_view fullName) {
  return "update STDomains set ParentName = " + QuotedStr(parentName) +
         " , FullName = " + QuotedStr(fullName) + " where ID = " + std::to_string(id) + ";";
}

std::string UpdateSequence(int id, int sequence) {
  return Format("update STDomains set Sequence = %d where ID = %d;", {sequence, id});
}

// clang-format on

}  // namespace zanrole
