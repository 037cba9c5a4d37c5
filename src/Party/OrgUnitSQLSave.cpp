#include "Frame/Commlib.h"
#include "Frame/Dialects.h"
#include "Frame/Session.h"
#include "Party/OrgUnitSQL.h"
#include "Party/Un_PositionUnit.h"

namespace zanrole {

namespace {

// clang-format off

constexpr const char* kInsertNode = R"(
 Insert Into PartyH (DjLsh,Parent,IsActive,Sequence,Type,Title,name,code)
  Values (:DjLsh,:Parent,:IsActive,:Sequence,:Type,:Title,:name,:code))";

constexpr const char* kUpdateNode = R"(
 Update PartyH Set Parent=:Parent, IsActive=:IsActive, Sequence=:Sequence, Type=:Type,
 Title=:Title,name =:name,code =:code Where Djlsh= )";

/// How a kind of node is tied to its entity.
struct TEntityStatements {
  const char* Counter;
  const char* OfNode;     ///< the entity row of a node; the identity is joined on
  const char* Existing;   ///< an entity row by its own identity, joined on
  const char* Adopt;      ///< binds that row to the node
  const char* Insert;
};

constexpr TEntityStatements kCompany = {
    "Company",
    "select * from CompanyH where objID=",
    "select * from CompanyH where djlsh=",
    "update CompanyH set ObjID=:ObjID where djlsh=",
    "insert into CompanyH ( Djlsh,ObjID,code,Name,Title ) Values(:Djlsh,:ObjID,:code,:Name,:Title)"};

constexpr TEntityStatements kDepartment = {
    "Department",
    "select * from DepartmentH where objID=",
    "select * from DepartmentH where djlsh=",
    "update DepartmentH set ObjID=:ObjID where djlsh=",
    "insert into DepartmentH ( Djlsh,ObjID,code,Name,Title ) Values(:Djlsh,:ObjID,:code,:Name,:Title)"};

constexpr const char* kPositionOfNode = "select * from PositionEntityH where objID=";

constexpr const char* kInsertPosition = R"(
insert into PositionEntityH ( Djlsh,ObjID,code,Name,Title,PositionCode,UpperPosition )
 Values(:Djlsh,:ObjID,:code,:Name,:Title,:PositionCode,:UpperPosition))";

constexpr const char* kPersonOfCode = "select Djlsh from userH where code=";
constexpr const char* kUpdatePerson = "update userH set objID = :objID where code = :code";
constexpr const char* kInsertPerson =
    "insert into userH (djlsh, name, title, code, objID ) VAlues (:djlsh, :name, :title, :code, :objID)";

constexpr const char* kAccountOfCode = "select OID from stusers where UserID = ";
constexpr const char* kInsertAccount =
    "insert into stusers ( OID, UserID, UserName ) VAlues (:OID, :UserID, :UserName)";
constexpr const char* kLargestOID = "Select Max(OID) as MID From STUsers";

constexpr const char* kDeleteOtherPosts =
    "delete from PartyH where Type='User' and Code=%s and Parent <> %d"
    " and Parent in (select DjLsh from PartyH where Type='PositionEntity')";

constexpr const char* kMainPostOfCode = "select objID from UserH where code=";

// clang-format on

bool HasRow(TZANQuery& query, const std::string& statement) {
  OpenStatement(query, statement);
  return !query.Eof();
}

void SetStatement(TZANQuery& query, std::string_view statement) {
  query.Close();
  query.SQL().SetText(std::string(statement));
}

/// Columns that the three kinds of entity share.
void FillEntity(TZANQuery& query, const TOrgUnit& unit, const char* counter) {
  query.ParamByName("Djlsh").AsInteger(SystemInfo().NewDjLsh(counter));
  query.ParamByName("ObjID").AsInteger(unit.ID);
  query.ParamByName("code").AsString(unit.code);
  query.ParamByName("Name").AsString(unit.name);
  query.ParamByName("Title").AsString(unit.title);
}

void SaveEntity(TZANQuery& query, const TOrgUnit& unit, const TEntityStatements& statements) {
  if (HasRow(query, statements.OfNode + std::to_string(unit.ID))) return;
  const std::string existing = std::to_string(unit.tempDjlsh);
  if (HasRow(query, statements.Existing + existing)) {
    SetStatement(query, statements.Adopt + existing);
    query.ParamByName("ObjID").AsInteger(unit.ID);
  } else {
    SetStatement(query, statements.Insert);
    FillEntity(query, unit, statements.Counter);
  }
  query.ExecSQL();
}

int MainPostOf(const TOrgUnit& unit) { return unit.mainPO > 0 ? unit.mainPO : unit.ID; }

void SavePerson(TZANQuery& query, const TOrgUnit& unit) {
  if (HasRow(query, kPersonOfCode + QuotedStr(unit.code))) {
    SetStatement(query, kUpdatePerson);
  } else {
    SetStatement(query, kInsertPerson);
    query.ParamByName("djlsh").AsInteger(SystemInfo().NewDjLsh("user"));
    query.ParamByName("name").AsString(unit.name);
    query.ParamByName("title").AsString(unit.title);
  }
  query.ParamByName("code").AsString(unit.code);
  query.ParamByName("objID").AsInteger(MainPostOf(unit));
  query.ExecSQL();
}

}  // namespace

void TOrgUnitSQL::SaveNode(TZANQuery& query, const TOrgUnit& unit) {
  SetStatement(query, unit.isNew ? kInsertNode : kUpdateNode + std::to_string(unit.ID));
  if (unit.isNew) query.ParamByName("DjLsh").AsInteger(unit.ID);
  query.ParamByName("Parent").AsInteger(unit.parentID);
  TDbHelperProviderFactory::GetDBParamHelper()->SetBoolean(query.ParamByName("IsActive"), unit.IsActive);
  query.ParamByName("Sequence").AsInteger(unit.sequence);
  query.ParamByName("Type").AsString(unit.kind);
  query.ParamByName("Title").AsString(unit.title);
  query.ParamByName("name").AsString(unit.name);
  query.ParamByName("code").AsString(unit.code);
  query.ExecSQL();
}

void TOrgUnitSQL::SaveOrganUnits(const TOrgUnit& AOrgUnit) {
  try {
    const auto query = TDbProviderFactory::GetQuery();
    SaveNode(*query, AOrgUnit);
    if (AOrgUnit.isCompany()) SaveCompany(*query, AOrgUnit);
    if (AOrgUnit.isDepartment()) SaveDepartment(*query, AOrgUnit);
    if (AOrgUnit.isPositionEntity()) SavePosition(*query, AOrgUnit);
    if (AOrgUnit.isUser() && AOrgUnit.UserPartyUpdate) saveUser(*query, AOrgUnit);
  } catch (const EZanError& error) {
    throw EZanError(error.what());
  }
}

void TOrgUnitSQL::SaveOrganUnitsWithoutExtend(const TOrgUnit& AOrgUnit) {
  try {
    SaveNode(*TDbProviderFactory::GetQuery(), AOrgUnit);
  } catch (const EZanError& error) {
    throw EZanError(error.what());
  }
}

void TOrgUnitSQL::SaveCompany(TZANQuery& query, const TOrgUnit& unit) { SaveEntity(query, unit, kCompany); }

void TOrgUnitSQL::SaveDepartment(TZANQuery& query, const TOrgUnit& unit) {
  SaveEntity(query, unit, kDepartment);
}

void TOrgUnitSQL::SavePosition(TZANQuery& query, const TOrgUnit& unit) {
  if (HasRow(query, kPositionOfNode + std::to_string(unit.ID))) return;
  SetStatement(query, kInsertPosition);
  FillEntity(query, unit, "PositionEntity");
  query.ParamByName("PositionCode").AsString(unit.positionCode);
  query.ParamByName("UpperPosition").AsInteger(kNoUpperPosition);
  query.ExecSQL();
}

// A person placed in the tree always becomes a user of the system, without password or group: those columns
// stay at the database's defaults.
void TOrgUnitSQL::saveUser(TZANQuery& query, const TOrgUnit& unit) {
  SavePerson(query, unit);
  if (unit.code.empty() || HasRow(query, kAccountOfCode + QuotedStr(unit.code))) return;
  const int oid = CreateOID(query);
  SetStatement(query, kInsertAccount);
  query.ParamByName("OID").AsInteger(oid);
  query.ParamByName("UserID").AsString(unit.code);
  query.ParamByName("UserName").AsString(unit.name);
  query.ExecSQL();
}

int TOrgUnitSQL::CreateOID(TZANQuery& query) { return NextIdentity(query, kLargestOID); }

void TOrgUnitSQL::PositionAssignUser(TOrgUnit& AOrgUnit, bool keepOthers) {
  const auto query = TDbProviderFactory::GetQuery();
  const std::string code = QuotedStr(AOrgUnit.code);
  if (!keepOthers) ExecStatement(*query, Format(kDeleteOtherPosts, {code, AOrgUnit.parentID}));
  AOrgUnit.ID = SystemInfo().NewDjLsh("Party");
  AOrgUnit.isNew = true;
  AOrgUnit.mainPO = AOrgUnit.ID;
  if (keepOthers && HasRow(*query, kMainPostOfCode + code)) {
    const int mainPost = query->FieldByName("objID").AsInteger();
    if (mainPost > 0) AOrgUnit.mainPO = mainPost;
  }
  SaveOrganUnits(AOrgUnit);
}

}  // namespace zanrole
