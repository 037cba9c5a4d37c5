#include "Party/OrgUnitSQL.h"

#include <unordered_set>

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"

namespace zanrole {

namespace {

// clang-format off

constexpr const char* kUnits =
    "select * from PartyH  where Type in ('Company','Department','PositionEntity')  order by Type, Sequence";

constexpr const char* kUnitsByParent =
    "select * from PartyH  where Type in ('Company','Department','PositionEntity')  "
    "order by Type, Parent, Sequence";

constexpr const char* kActiveUsersOfPosition = R"(
select p.*, u.ObjID as MainPO from PartyH p
 left join (select distinct code, objID from userH) u on u.code=p.code
 where (p.IsActive=1) and (p.Type='User') and (p.Parent=%d) order by Sequence)";

constexpr const char* kUsersOfParent = R"(
select p.*, u.ObjID as MainPO from PartyH p
 left join (select distinct code, objID from userH) u on u.code=p.code
 where (p.Type='User') and (p.Parent=:Parent) order by Sequence)";

constexpr const char* kUnitsOfCode = " select  * from  PartyH where (%s=:Type) and (code=:code)";

constexpr const char* kNodeOfCode = R"(
SELECT ph.DjLsh
FROM PartyH ph
WHERE ph.Type= :pType
  AND ph.Code= :pCode)";

constexpr const char* kSequenceLine = "Update PartyH set sequence=%d where djlsh=%d;";

constexpr const char* kIsManager = "select 1 from PositionEntityH where isManager = 1 and ObjID = ";

constexpr const char* kManagers =
    "select a.ObjID from PositionEntityH a inner join PartyH b on a.ObjID = b.DjLsh "
    "where a.isManager = 1 and b.Type = 'PositionEntity' ";

// clang-format on

void AddRows(TZANQuery& query, TOrgUnitList& list) {
  for (; !query.Eof(); query.Next()) list.Add(std::make_unique<TOrgUnit>()).LoadFromDB(query.DataSet());
}

}  // namespace

std::string TOrgUnitSQL::OpenSql() { return kUnits; }

void TOrgUnitSQL::LoadOrgUnitsToList(TOrgUnitList& ToList) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, kUnitsByParent);
  AddRows(*query, ToList);
  CheckPEManagers(ToList);
}

void TOrgUnitSQL::LoadPositionEntityUsers(TOrgUnit& AOrgUnit) {
  AOrgUnit.Clear();
  const auto query = TDbProviderFactory::GetQuery();
  for (OpenStatement(*query, Format(kActiveUsersOfPosition, {AOrgUnit.ID})); !query->Eof(); query->Next())
    AOrgUnit.AdoptChild(std::make_unique<TOrgUnit>()).LoadFromDB(query->DataSet());
}

void TOrgUnitSQL::ListUsersByParent(const TOrgUnit& parent, TOrgUnitList& UserList) {
  try {
    const auto query = TDbProviderFactory::GetQuery();
    query->SQL().SetText(kUsersOfParent);
    query->ParamByName("Parent").AsInteger(parent.ID);
    query->Open();
    AddRows(*query, UserList);
  } catch (const EZanError& error) {
    throw EZanError(error.what());
  }
}

std::unique_ptr<TOrgUnitList> TOrgUnitSQL::FindOrganUnits(std::string_view AType, std::string_view ACode) {
  try {
    auto units = std::make_unique<TOrgUnitList>();
    const auto query = TDbProviderFactory::GetQuery();
    const std::string typeColumn = TDbHelperProviderFactory::GetDBObjectHelper()->QuoteName("Type");
    query->SQL().SetText(Format(kUnitsOfCode, {typeColumn}));
    query->ParamByName("Type").AsString(AType);
    query->ParamByName("code").AsString(ACode);
    query->Open();
    AddRows(*query, *units);
    return units;
  } catch (const EZanError& error) {
    throw EZanError(error.what());
  }
}

int TOrgUnitSQL::GetPartyDjLsh(std::string_view type, std::string_view code) {
  const auto query = TDbProviderFactory::GetQuery();
  query->SQL().SetText(kNodeOfCode);
  query->ParamByName("pType").AsString(type);
  query->ParamByName("pCode").AsString(code);
  query->Open();
  return query->Eof() ? -1 : query->Fields(0).AsInteger();
}

void TOrgUnitSQL::UpdateOrgUnitSequence(const TOrgUnit& AOrgUnit) {
  ExecStatement(*TDbProviderFactory::GetQuery(),
                "Update PartyH set sequence=" + std::to_string(AOrgUnit.sequence) +
                    " where djlsh=" + std::to_string(AOrgUnit.ID));
}

void TOrgUnitSQL::BatUpdateOrgUnitSequence(const TOrgUnitList& list) {
  TStringList statements;
  for (const auto& unit : list) statements.Add(Format(kSequenceLine, {unit->sequence, unit->ID}));
  RunBatch(*TDbProviderFactory::GetQuery(), statements);
}

void TOrgUnitSQL::CheckPEManagerOne(TOrgUnit& AOrgUnit) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, kIsManager + std::to_string(AOrgUnit.ID));
  AOrgUnit.PEIsManager = !query->Eof();
}

void TOrgUnitSQL::CheckPEManagers(const TOrgUnitList& list) {
  std::unordered_set<int> managers;
  const auto query = TDbProviderFactory::GetQuery();
  for (OpenStatement(*query, kManagers); !query->Eof(); query->Next())
    managers.insert(query->FieldByName("ObjID").AsInteger());
  for (const auto& unit : list) unit->PEIsManager = managers.count(unit->ID) > 0;
}

}  // namespace zanrole
