#include "Party/Un_PositionUnit.h"

#include <unordered_map>

#include "Frame/Dialects.h"

namespace zanrole {

namespace {

// clang-format off

constexpr const char* kPosition = R"(
Select partyH.Type,partyH.name,partyH.title,partyH.IsActive,partyH.Parent,partyH.Code,
 positionEntityH.PositionCode,positionEntityH.UpperPosition
 from partyH,positionEntityH where partyH.Djlsh=positionEntityH.objID and partyH.Djlsh= )";

constexpr const char* kUpperPositionOf =
    "select * from partyh where Djlsh in ( select UpperPosition from positionEntityh where ObjID =";

constexpr const char* kUpperPositionID = "select upperPosition from positionEntityH where objID=";

constexpr const char* kAllPositions = "Select ObjID,Code,upperPosition from PositionEntityH ";

constexpr const char* kUpdateNode =
    " Update PartyH Set Parent=:Parent, IsActive=:IsActive, Title=:Title,name =:name Where Djlsh= ";

constexpr const char* kUpdateEntity =
    "Update PositionEntityH Set Name=:name, title=:title,upperPosition=:upperPosition where ObjID=";

// clang-format on

void Exec(const std::string& statement) { ExecStatement(*TDbProviderFactory::GetQuery(), statement); }

bool ReadIsActive(TDataSet& dataSet) {
  return TDbHelperProviderFactory::GetDBFieldHelper()->GetBoolean(dataSet.FieldByName("IsActive"));
}

/// The superior of every position; of several rows of one position the first counts.
std::unordered_map<int, int> ReadUpperPositions() {
  std::unordered_map<int, int> upper;
  const auto query = TDbProviderFactory::GetQuery();
  for (OpenStatement(*query, kAllPositions); !query->Eof(); query->Next())
    upper.emplace(query->FieldByName("ObjID").AsInteger(), query->FieldByName("upperPosition").AsInteger());
  return upper;
}

}  // namespace

TPositionEntity::TPositionEntity(int AObjID) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, kPosition + std::to_string(AObjID));
  kind = "PositionEntity";
  if (query->Eof()) return;
  ID = AObjID;
  parentID = query->FieldByName("Parent").AsInteger();
  name = query->FieldByName("name").AsString();
  title = query->FieldByName("title").AsString();
  code = query->FieldByName("Code").AsString();
  IsActive = ReadIsActive(query->DataSet());
  FupperPositionID = query->FieldByName("UpperPosition").AsInteger();
  positionCode = query->FieldByName("PositionCode").AsString();
}

TPositionEntity::~TPositionEntity() = default;

void TPositionEntity::LoadPositionFromDB(TDataSet& dataSet) {
  ID = dataSet.FieldByName("Djlsh").AsInteger();
  parentID = dataSet.FieldByName("parent").AsInteger();
  name = dataSet.FieldByName("name").AsString();
  title = dataSet.FieldByName("title").AsString();
  code = dataSet.FieldByName("code").AsString();
  IsActive = ReadIsActive(dataSet);
  FupperPositionID = dataSet.FieldByName("UpperPosition").AsInteger();
  positionCode = dataSet.FieldByName("PositionCode").AsString();
  kind = "PositionEntity";
}

void TPositionEntity::copyFromOrgUnit(const TOrgUnit& orgUnit) {
  ID = orgUnit.ID;
  parentID = orgUnit.parentID;
  name = orgUnit.name;
  title = orgUnit.title;
  code = orgUnit.code;
  kind = orgUnit.kind;
  positionCode = orgUnit.positionCode;
}

TPositionEntity& TPositionEntity::GetUpperPosition() {
  if (upperPosition) return *upperPosition;
  auto upper = std::make_unique<TPositionEntity>();
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, kUpperPositionOf + std::to_string(ID) + ")");
  if (!query->Eof()) upper->LoadFromDB(query->DataSet());
  FLoadedUpperPosition = std::move(upper);
  upperPosition = FLoadedUpperPosition.get();
  return *upperPosition;
}

int TPositionEntity::GetUpperPositionID() {
  if (FupperPositionID == 0) {
    const auto query = TDbProviderFactory::GetQuery();
    OpenStatement(*query, kUpperPositionID + std::to_string(ID));
    if (!query->Eof()) FupperPositionID = query->Fields(0).AsInteger();
  }
  return FupperPositionID;
}

TOrgUnit& TPositionEntity::GetUpperDepartment() {
  if (!FUpperDepartment) FUpperDepartment = std::make_unique<TOrgUnit>(parentID);
  return *FUpperDepartment;
}

void TPositionEntity::saveUpperPosition() const {
  Exec("update PositionEntityH set UpperPosition= " + std::to_string(upperPosition->ID) +
       " where objID=" + std::to_string(ID));
}

void TPositionEntity::updateUpperPositionID() const {
  Exec("update PositionEntityH set UpperPosition=" + std::to_string(FupperPositionID) +
       " where ObjID=" + std::to_string(ID));
}

void TPositionEntity::clearUpperPosition() const {
  Exec("Update PositionEntityH Set upperPosition= -9  where ObjID=" + std::to_string(ID));
}

bool TPositionEntity::testUpperPosition(const TPositionEntity& AUpperPosition) const {
  return testUpperPosition(AUpperPosition.ID);
}

bool TPositionEntity::testUpperPosition(int AUpperPositionID) const {
  constexpr int kUnknownPosition = -111;
  const std::unordered_map<int, int> upper = ReadUpperPositions();
  int cur = AUpperPositionID;
  // A chain of more steps than there are positions goes round in a loop that this position is no part of.
  for (std::size_t step = 0; step <= upper.size(); ++step) {
    if (cur == ID) return false;
    if (cur == kNoUpperPosition || cur == kUnknownPosition) return true;
    const auto row = upper.find(cur);
    cur = row == upper.end() ? kUnknownPosition : row->second;
  }
  return true;
}

void TPositionEntity::update() const {
  try {
    const auto query = TDbProviderFactory::GetQuery();
    query->SQL().SetText(kUpdateNode + std::to_string(ID));
    query->ParamByName("Parent").AsInteger(parentID);
    TDbHelperProviderFactory::GetDBParamHelper()->SetBoolean(query->ParamByName("IsActive"), IsActive);
    query->ParamByName("Title").AsString(title);
    query->ParamByName("name").AsString(name);
    query->ExecSQL();
    query->SQL().SetText(kUpdateEntity + std::to_string(ID));
    query->ParamByName("name").AsString(name);
    query->ParamByName("title").AsString(title);
    query->ParamByName("upperPosition").AsInteger(FupperPositionID);
    query->ExecSQL();
  } catch (const EZanError& error) {
    throw EZanError(error.what());
  }
}

}  // namespace zanrole
