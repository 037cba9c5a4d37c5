#include "Party/Un_OrgUnit.h"

#include <algorithm>

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"

namespace zanrole {

namespace {

constexpr const char* kUnit = "select * from partyH where djlsh=";
constexpr const char* kDepartmentByName = "Select * from DepartmentsH where name = ";

/// Name and title of the row are given as parameters.
void ExecRename(TZANQuery& query, const TOrgUnit& unit, const std::string& statement) {
  query.SQL().SetText(statement);
  if (query.Params().Find("Name")) query.ParamByName("Name").AsString(unit.name);
  if (query.Params().Find("Title")) query.ParamByName("Title").AsString(unit.title);
  query.ExecSQL();
}

void RenameEntity(TZANQuery& query, const TOrgUnit& unit) {
  const std::string id = std::to_string(unit.ID);
  if (unit.isCompany())
    ExecRename(query, unit, "update CompanyH set Name=:Name, Title=:Title where ObjID= " + id);
  else if (unit.isDepartment())
    ExecRename(query, unit, "update DepartmentH set Name=:Name, Title=:Title where ObjID= " + id);
  else if (unit.isPositionEntity())
    ExecRename(query, unit, "update PositionEntityH set Name=:Name, title=:title where ObjID= " + id);
}

void RenamePerson(TZANQuery& query, const TOrgUnit& unit) {
  if (unit.code.empty()) {
    ExecRename(query, unit,
               "update userH set Name=:Name, Title=:Title where ObjID= " + std::to_string(unit.ID));
    return;
  }
  const std::string code = QuotedStr(unit.code);
  ExecRename(query, unit, "update userH set Name=:Name, Title=:Title where code= " + code);
  ExecRename(query, unit, "update stusers set UserName=:Name where userID= " + code);
}

}  // namespace

TOrgUnit::TOrgUnit(int AId) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, kUnit + std::to_string(AId));
  if (query->DataSet().IsEmpty()) throw EZanError(TZanResEx::resByExFunc("没有找到该ID号对应的组织机构单元"));
  ID = AId;
  parentID = query->FieldByName("Parent").AsInteger();
  sequence = query->FieldByName("Sequence").AsInteger();
  IsActive = TDbHelperProviderFactory::GetDBFieldHelper()->GetBoolean(query->FieldByName("IsActive"));
  kind = query->FieldByName("Type").AsString();
  name = query->FieldByName("Name").AsString();
  title = query->FieldByName("Title").AsString();
  code = query->FieldByName("code").AsString();
}

TOrgUnit::~TOrgUnit() = default;
TOrgnize::~TOrgnize() = default;
TDepartment::~TDepartment() = default;
TWorkGroup::~TWorkGroup() = default;

std::string TOrgUnit::GetKindCName() const {
  if (isCompany()) return TZanResEx::resByExFunc("公司");
  if (isDepartment()) return TZanResEx::resByExFunc("部门");
  if (isPositionEntity()) return TZanResEx::resByExFunc("岗位");
  if (isUser()) return TZanResEx::resByExFunc("用户");
  if (kind == "UserGroup") return TZanResEx::resByExFunc("用户组");
  return "";
}

void TOrgUnit::LoadFromDB(TDataSet& DataSet) {
  ID = DataSet.FieldByName("DjLsh").AsInteger();
  parentID = DataSet.FieldByName("Parent").AsInteger();
  sequence = DataSet.FieldByName("Sequence").AsInteger();
  kind = DataSet.FieldByName("Type").AsString();
  name = DataSet.FieldByName("Name").AsString();
  title = DataSet.FieldByName("Title").AsString();
  code = DataSet.FieldByName("code").AsString();
  if (const TField* active = DataSet.FindField("IsActive"))
    IsActive = TDbHelperProviderFactory::GetDBFieldHelper()->GetBoolean(*active);
  const TField* longName = DataSet.FindField("LongName");
  LongName = longName ? longName->AsString() : "";
  if (LongName.empty()) LongName = name;
  const TField* mainPost = DataSet.FindField("MainPO");
  mainPO = mainPost ? mainPost->AsInteger() : 0;
  isNew = false;
}

void TOrgUnit::CopyFrom(const TOrgUnit& AOrgUnit) {
  ID = AOrgUnit.ID;
  kind = AOrgUnit.kind;
  name = AOrgUnit.name;
  title = AOrgUnit.title;
  code = AOrgUnit.code;
  positionCode = AOrgUnit.positionCode;
  LongName = AOrgUnit.LongName;
}

void TOrgUnit::Clear() {
  FChildren.clear();
  FOwnChildren.clear();
}

TOrgUnit& TOrgUnit::AdoptChild(std::unique_ptr<TOrgUnit> AOrgUnit) {
  FOwnChildren.push_back(std::move(AOrgUnit));
  AddChild(*FOwnChildren.back());
  return *FOwnChildren.back();
}

void TOrgUnit::RootAddChild(TOrgUnit& AOrgUnit) {
  if (TOrgUnit* parent = FindChildUnitByID(AOrgUnit.parentID)) {
    AOrgUnit.parentUnit = parent;
    parent->AddChild(AOrgUnit);
  } else if (left_items) {
    left_items->push_back(&AOrgUnit);
  }
}

TOrgUnit* TOrgUnit::FindChildUnitByID(int AUnitID) {
  if (ID == AUnitID) return this;
  const auto child = std::find_if(FChildren.begin(), FChildren.end(),
                                  [&](const TOrgUnit* unit) { return unit->ID == AUnitID; });
  if (child != FChildren.end()) return *child;
  for (TOrgUnit* unit : FChildren) {
    if (TOrgUnit* found = unit->FindChildUnitByID(AUnitID)) return found;
  }
  return nullptr;
}

void TOrgUnit::UpdateOrganUnit() const {
  try {
    const auto query = TDbProviderFactory::GetQuery();
    if (isUser())
      RenamePerson(*query, *this);
    else
      RenameEntity(*query, *this);
    ExecRename(*query, *this,
               "update partyH set Name=:Name, Title=:Title where Djlsh= " + std::to_string(ID));
  } catch (const EZanError&) {
    // A rename may leave the tables out of step; the caller goes on as after a success.
  }
}

void TDepartment::SetValueByTitle(std::string_view departmentName) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, kDepartmentByName + QuotedStr(departmentName));
  if (query->Eof()) {
    name = title = TZanResEx::resByExFunc("未定义所属部门");
    return;
  }
  ID = query->FieldByName("DjLsh").AsInteger();
  name = title = query->FieldByName("ID").AsString();
}

TOrgUnit& TOrgUnitList::Add(std::unique_ptr<TOrgUnit> unit) {
  FItems.push_back(std::move(unit));
  return *FItems.back();
}

void TOrgUnitList::Clear() {
  while (!FItems.empty()) FItems.pop_back();
}

bool TOrgUnitList::hasOthPEntity(int peId) const {
  return std::any_of(FItems.begin(), FItems.end(),
                     [&](const auto& unit) { return unit->ID > 0 && unit->ID != peId; });
}

}  // namespace zanrole
