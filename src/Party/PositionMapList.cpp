#include <algorithm>

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"
#include "Frame/Session.h"
#include "Party/PositionMap.h"

namespace zanrole {

namespace {

// clang-format off

constexpr const char* kPositionEntities = R"(
Select partyh.djlsh, partyH.Type,partyH.name,partyH.title,partyH.IsActive,partyH.Parent,partyH.Code,
 positionEntityH.PositionCode,positionEntityH.UpperPosition
 from partyH,positionEntityH where partyH.Djlsh=positionEntityH.objID )";

constexpr const char* kMapRows =
    "select Djlsh, PositionName, PositionID, UpperPosition, MapID from PositionMapH order by UpperPosition";

constexpr const char* kDeleteMap = " delete from PositionMapH where MapID = ";

// clang-format on

/// The superior of a position at the top of the old chain, and the row above the root of a map.
constexpr int kTop = -1;

using TEntitiesByUpper = std::unordered_map<int, std::vector<TPositionEntity*>>;

void AppendUnderlings(TPositionMapItem& item, int upperPositionID, const TEntitiesByUpper& entities) {
  const auto underlings = entities.find(upperPositionID);
  if (underlings == entities.end()) return;
  for (TPositionEntity* entity : underlings->second)
    AppendUnderlings(item.AddChild(*entity), entity->ID, entities);
}

/// What the session keeps: nothing until the first use.
struct TMapListSlot {
  std::unique_ptr<TPositionMapList> List;
};

}  // namespace

TPositionMap* TPositionMapList::FindMap(std::string_view AName) const {
  if (AName.empty()) return Default();
  const auto map =
      std::find_if(FList.begin(), FList.end(), [&](const auto& item) { return item->FName == AName; });
  return map == FList.end() ? nullptr : map->get();
}

TPositionEntity* TPositionMapList::FindEntity(int APositionID) const {
  const auto entity = FEntityIndex.find(APositionID);
  return entity == FEntityIndex.end() ? nullptr : entity->second;
}

TPositionMap& TPositionMapList::Add(std::string_view AName) {
  FList.push_back(std::make_unique<TPositionMap>(*this, AName));
  TPositionMap& map = *FList.back();
  map.FRoot = std::make_unique<TPositionMapItem>(map, nullptr, nullptr);
  return map;
}

void TPositionMapList::Delete(TPositionMap& AMap) {
  try {
    ExecStatement(*TDbProviderFactory::GetQuery(), kDeleteMap + std::to_string(AMap.MapID()));
  } catch (const EZanError& error) {
    throw EZanError(error.what());
  }
  const auto isMap = [&](const auto& item) { return item.get() == &AMap; };
  FList.erase(std::find_if(FList.begin(), FList.end(), isMap));
}

void TPositionMapList::update() {
  TStringList lines;
  for (const auto& map : FList) map->ProcessUpdate(lines);
  TStringList statements;
  for (const std::string& line : lines) statements.Add(line + ";");
  RunBatch(*TDbProviderFactory::GetQuery(), statements);
  for (const auto& map : FList) map->ChangeUpdated();
}

void TPositionMapList::Load() {
  FList.clear();
  FEntityIndex.clear();
  FEntityList.clear();
  const auto query = TDbProviderFactory::GetQuery();
  LoadEntities(*query);
  LoadMaps(*query);
  if (FList.empty()) UpdateFromOld();
}

void TPositionMapList::LoadEntities(TZANQuery& query) {
  for (OpenStatement(query, kPositionEntities); !query.Eof(); query.Next()) {
    FEntityList.push_back(std::make_unique<TPositionEntity>());
    FEntityList.back()->LoadPositionFromDB(query.DataSet());
    FEntityIndex.emplace(FEntityList.back()->ID, FEntityList.back().get());
  }
}

void TPositionMapList::LoadMaps(TZANQuery& query) {
  OpenStatement(query, kMapRows);
  const TPositionMapRows rows(query.DataSet());
  query.Close();
  for (const TPositionMapRows::TRow& row : rows.Below(kTop)) {
    TPositionMap& map = Add(row.PositionName);
    map.FRoot->FID = row.Djlsh;
    map.FRoot->FChanged = false;
  }
  for (const auto& map : FList) map->FRoot->LoadChildren(rows);
}

void TPositionMapList::UpdateFromOld() {
  TEntitiesByUpper entities;
  for (const auto& entity : FEntityList) entities[entity->GetUpperPositionID()].push_back(entity.get());
  AppendUnderlings(*Add("岗位关系图").FRoot, kTop, entities);
  update();
}

TPositionMapList& MapList() {
  auto& list = TSession::Current().Slot<TMapListSlot>().List;
  if (!list) {
    auto loaded = std::make_unique<TPositionMapList>();
    loaded->Load();
    list = std::move(loaded);
  }
  return *list;
}

void FreeMapList() {
  if (TMapListSlot* slot = TSession::Current().FindSlot<TMapListSlot>()) slot->List.reset();
}

}  // namespace zanrole
