#include "Party/PartyUn.h"

#include "Frame/Dialects.h"
#include "Party/PartyUnQuery.h"

// Posts, departments, companies and managers. What PartyUnSuperiors.cpp holds: superiors and underlings.

namespace zanrole {

namespace {

// clang-format off

std::string SelectDepartmentOfMainPost(const std::string& user) {
  return "select parent as oid from partyh where djlsh in  ( select parent from partyh where type='User' "
         "and (djlsh = (select objid from UserH where code=" + QuotedStr(user) + ")))";
}

std::string SelectDepartmentByCode(const std::string& code) {
  return "select djlsh as oid from partyh where type='Department' and code=" + QuotedStr(code);
}

std::string SelectParentOfDepartment(const std::string& oid) {
  return "select parent from partyh where type = 'Department' and djlsh= " + oid;
}

std::string SelectNode(int oid) { return "select type,code,parent from partyh where djlsh = " + std::to_string(oid); }

/// The position of the main post, as a select within another.
std::string PositionOfMainPost(const std::string& user) {
  return "select parent from partyh where type='User' and (djlsh = (select objid from UserH where code=" +
         QuotedStr(user) + "))";
}

std::string SelectPositionOfMainPost(const std::string& user) {
  return "select parent as oid from partyh where type='User' and  (djlsh = (select objid from UserH where code=" +
         QuotedStr(user) + "))";
}

// The holders of a position. `type` is a reserved word of some dialects.

std::string QuotedType() { return TDbHelperProviderFactory::GetDBObjectHelper()->QuoteName("type"); }

std::string SelectHolders(const std::string& positionCode) {
  return "select code,name from PartyH where " + QuotedType() + "='User' and(parent in\r\n"
         "(select objId from PositionEntityH where Code=" + QuotedStr(positionCode) + "))";
}

std::string SelectPeopleOfHolders(const std::string& positionCode) {
  return "select Djlsh as oid,Code,Name from UserH where Code in ( \r\n"
         "select code from PartyH where " + QuotedType() + "='User' and(parent in\r\n"
         "(select objId from PositionEntityH where Code=" + QuotedStr(positionCode) + "))\r\n"
         ")";
}

std::string SelectHoldersOfPost() {
  return "select code,name from PartyH where " + QuotedType() + "='User' and(parent=:parent )";
}

constexpr const char* kManagerPost =
    "select p.name as peName,p.djlsh as peoid,p.type,pe.* from partyh p left join PositionEntityH pe on pe.objid = p.djlsh\r\n"
    "where (p.parent in (select djlsh from partyh where code=:depcode))\r\n"
    "      and (p.type='PositionEntity')and (pe.isManager =1)";

// clang-format on

}  // namespace

// Department and company.

std::string TPartyFuncs::DepartmentOID(const std::string& user) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, SelectDepartmentOfMainPost(user));
  if (query->Eof()) OpenStatement(*query, SelectDepartmentByCode(user));
  return query->Eof() ? std::string{} : Trim(query->FieldByName("oid").AsString());
}

// The identity is compared as a text.

std::string TPartyFuncs::DepartmentCode(const std::string& user) {
  return FirstText("select code from partyh where djlsh =  " + QuotedStr(DepartmentOID(user)), "code");
}

std::string TPartyFuncs::DepartmentName(const std::string& user) {
  return FirstText("select name from partyh where djlsh =  " + QuotedStr(DepartmentOID(user)), "name");
}

std::string TPartyFuncs::CompanyCodeByDepartmentOid(const std::string& departmentOid) {
  const auto query = TDbProviderFactory::GetQuery();
  for (OpenStatement(*query, SelectParentOfDepartment(departmentOid)); !query->Eof();) {
    const int parent = query->FieldByName("parent").AsInteger();
    OpenStatement(*query, SelectNode(parent));
    if (!query->Eof() && query->FieldByName("type").AsString() == "Company")
      return Trim(query->FieldByName("code").AsString());
  }
  return {};
}

std::string TPartyFuncs::CompanyCode(const std::string& user) {
  const std::string department = DepartmentOID(user);
  return department.empty() ? std::string{} : CompanyCodeByDepartmentOid(department);
}

std::string TPartyFuncs::CompanyName(const std::string& user) {
  const std::string company = CompanyCode(user);
  if (company.empty()) return {};
  return FirstText("select name from partyh where type='Company' and code= " + QuotedStr(company), "name");
}

std::string TPartyFuncs::CompanyOID(const std::string& user) {
  const std::string company = CompanyCode(user);
  if (company.empty()) return {};
  return FirstText("select djlsh from partyh where type='Company' and code= " + QuotedStr(company), "djlsh");
}

// Position of the main post.

std::string TPartyFuncs::PositionEntityOID(const std::string& user) {
  return FirstText(SelectPositionOfMainPost(user), "oid");
}

std::string TPartyFuncs::PositionEntityCode(const std::string& user) {
  return FirstText("select code from partyh where djlsh in  ( " + PositionOfMainPost(user) + ")", "code");
}

std::string TPartyFuncs::PositionEntityName(const std::string& user) {
  return FirstText("select name from partyh where djlsh in  ( " + PositionOfMainPost(user) + ")", "name");
}

std::string TPartyFuncs::PositionCode(const std::string& user) {
  return FirstText(
      "select code from PositionH where code in "
      "( select PositionCode from PositionEntityH where ObjID in  ( " +
          PositionOfMainPost(user) + "))",
      "code");
}

std::string TPartyFuncs::PositionName(const std::string& user) {
  return FirstText(
      "select name from PositionH where code in "
      "( select PositionCode from PositionEntityH where ObjID in  ( " +
          PositionOfMainPost(user) + "))",
      "name");
}

// Holders of positions.

std::string TPartyFuncs::PositionUserOIDs(const std::string& positionCode) {
  return JoinedValues(SelectPeopleOfHolders(positionCode), "oid");
}

std::string TPartyFuncs::PositionUsercodes(const std::string& positionCode) {
  return JoinedValues(SelectHolders(positionCode), "code");
}

std::string TPartyFuncs::PositionUserNames(const std::string& positionCode) {
  return JoinedValues(SelectHolders(positionCode), "name");
}

std::string TPartyFuncs::GetPositionUserValues(int positionEntity, const std::string& column) {
  const auto query = TDbProviderFactory::GetQuery();
  query->SQL().SetText(SelectHoldersOfPost());
  query->ParamByName("parent").AsInteger(positionEntity);
  query->Open();
  return JoinedValues(*query, column);
}

// Managers.

int TPartyFuncs::GetManagerPositionEntity(const std::string& code) {
  const auto query = TDbProviderFactory::GetQuery();
  query->SQL().SetText(kManagerPost);
  query->ParamByName("depcode").AsString(code);
  query->Open();
  return query->Eof() ? -1 : query->FieldByName("peoid").AsInteger();
}

namespace {

std::string ManagerValues(const std::string& code, const char* column) {
  const int post = TPartyFuncs::GetManagerPositionEntity(code);
  return post < 0 ? std::string{} : TPartyFuncs::GetPositionUserValues(post, column);
}

}  // namespace

std::string TPartyFuncs::GetManagerCode(const std::string& code) { return ManagerValues(code, "code"); }

std::string TPartyFuncs::GetManagerName(const std::string& code) { return ManagerValues(code, "name"); }

// Main posts by login.

std::string TPartyFuncs::GetUserOID(const std::string& user) {
  return FirstText("select ObjID from UserH \r\nwhere (code= " + QuotedStr(user) + ")", "ObjID");
}

std::string TPartyFuncs::GetUserOIDS(const std::string& users) {
  const std::string logins = StringReplace(QuotedStr(users), ",", "', '");
  return JoinedValues("select ObjID from UserH \r\nwhere (code in (" + logins + "))", "ObjID");
}

}  // namespace zanrole
