#include "Frame/Dialects.h"
#include "Party/PartyUn.h"
#include "Party/PartyUnQuery.h"
#include "Party/PositionMap.h"

namespace zanrole {

// The chain of superiors.

namespace {

// clang-format off

std::string SelectOnSuperiorPositions(const std::string& user) {
  return "select code from partyH where parent in ( select UpperPosition from positionEntityh where ObjID in  "
         "( select parent from partyh where code= " + QuotedStr(user) + "))";
}

std::string SelectOnSubordinatePositions(const std::string& user) {
  return "select code from partyH where parent in ( select ObjID from positionEntityh where UpperPosition in  "
         "( select parent from partyh where type='User' and code= " + QuotedStr(user) + "))";
}

std::string SelectUpperPosition(const std::string& user) {
  return "select UpperPosition from positionEntityh where ObjID in \r\n"
         " ( select parent from partyh where code= '" + user + "')";
}

std::string SelectSubordinatePositions(const std::string& user) {
  return "select ObjID from positionEntityh where UpperPosition in \r\n"
         " ( select parent from partyh where type='User' and code= '" + user + "')";
}

// clang-format on

}  // namespace

std::string TPartyFuncs::Superior(const std::string& user) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, SelectOnSuperiorPositions(user));
  return LinesAsList(ValueLines(*query, "code"));
}

std::string TPartyFuncs::Underling(const std::string& user) {
  return JoinedValues(SelectOnSubordinatePositions(user), "code");
}

std::string TPartyFuncs::SuperOID(const std::string& user) {
  return FirstText(SelectUpperPosition(user), "UpperPosition");
}

std::string TPartyFuncs::UnderOIDS(const std::string& user) {
  return JoinedValues(SelectSubordinatePositions(user), "ObjID");
}

// A map, one level.

namespace {

std::string SelectFirstMap() {
  return TDbHelperProviderFactory::GetSelectSQLHelper()->Build({.Fields = "MapId, PositionName",
                                                                .Table = "PositionMapH",
                                                                .Where = "PositionID = -1",
                                                                .OrderBy = "MapId"});
}

// clang-format off

constexpr const char* kMapByName =
    "select MapId,PositionName from  PositionMapH where (PositionID=-1)and (PositionName=:MapName)";

// The root row of a map is no position: whoever stands at the first level has no superior.
constexpr const char* kOnPositionAbove =
    "select code from partyH  where parent in (  select MP.PositionId from PositionMapH MP"
    "   where MP.PositionID >= 0 and MP.djlsh in ("
    "        SELECT LP.UpperPosition FROM PositionMapH LP"
    "        WHERE LP.MapID = :MapID AND LP.UpperPosition >= 0"
    "             AND LP.UpperPosition >= 0 and LP.PositionID in (select parent from partyh where code = :UserId) )) ";

constexpr const char* kOnPositionsBelow =
    "select code from partyH \r\n"
    " where parent in (select MP.PositionId from PositionMapH MP \r\n"
    "     where MP.UpperPosition in (  \r\n"
    "         SELECT     LP.djlsh   \r\n"
    "         FROM       PositionMapH LP   \r\n"
    "         WHERE     (LP.MapID = :MapID) and (LP.PositionID in (select parent from partyh where code=:UserID)) \r\n"
    "))";

// clang-format on

std::string AskMap(const char* statement, const std::string& user, const std::string& mapName) {
  const int map = TPartyFuncs::findMapId(mapName);
  if (map < 0) return {};
  const auto query = TDbProviderFactory::GetQuery();
  query->SQL().SetText(statement);
  query->ParamByName("MapID").AsInteger(map);
  query->ParamByName("UserId").AsString(user);
  query->Open();
  return LinesAsList(Trim(ValueLines(*query, "code")));
}

}  // namespace

int TPartyFuncs::findMapId(const std::string& name) {
  const auto query = TDbProviderFactory::GetQuery();
  if (name.empty()) {
    OpenStatement(*query, SelectFirstMap());
  } else {
    query->SQL().SetText(kMapByName);
    query->ParamByName("MapName").AsString(name);
    query->Open();
  }
  return query->Eof() ? -1 : query->FieldByName("MapId").AsInteger();
}

std::string TPartyFuncs::SuperiorEx(const std::string& user, const std::string& mapName) {
  return AskMap(kOnPositionAbove, user, mapName);
}

std::string TPartyFuncs::UnderlingEx(const std::string& user, const std::string& mapName) {
  return AskMap(kOnPositionsBelow, user, mapName);
}

// A map, from the list of maps in memory.

namespace {

/// The place of the user's first row in the map; null when the map is unknown or does not hold it.
/// `quotedUser` stands in the statement as it is.
TPositionMapItem* FindPlace(const std::string& quotedUser, const std::string& mapName) {
  TPositionMap* const map = MapList().FindMap(mapName);
  if (map == nullptr) return nullptr;
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, "select parent from partyh where code= " + quotedUser);
  return query->Eof() ? nullptr : map->Find(query->FieldByName("parent").AsInteger());
}

std::string Unescaped(const std::string& user) { return "'" + user + "'"; }

void AddPlaceLine(std::string& lines, const TPositionMapItem& item) {
  lines.append(std::to_string(item.FID)).append("\r\n");
}

/// A node before its children.
void AddPlacesBelow(std::string& lines, const TPositionMapItem& item) {
  for (const auto& child : item.FChildren) {
    AddPlaceLine(lines, *child);
    AddPlacesBelow(lines, *child);
  }
}

/// The list keeps the comma behind its last value: the statement fails in every database.
void OpenLoginsOf(TZANQuery& query, const std::string& placeLines) {
  OpenStatement(query, "select code from partyH where parent in (" + LinesAsList(placeLines) + ")");
}

}  // namespace

std::string TPartyFuncs::SuperiorAllEx(const std::string& user, const std::string& mapName) {
  const TPositionMapItem* const place = FindPlace(Unescaped(user), mapName);
  if (place == nullptr) return {};
  std::string places;
  for (const TPositionMapItem* item = place->FParent; item != nullptr; item = item->FParent)
    AddPlaceLine(places, *item);
  const auto query = TDbProviderFactory::GetQuery();
  OpenLoginsOf(*query, places);
  return LinesAsList(ValueLines(*query, "code"));
}

std::string TPartyFuncs::UnderlingAllEx(const std::string& user, const std::string& mapName) {
  const TPositionMapItem* const place = FindPlace(QuotedStr(user), mapName);
  if (place == nullptr || place->FChildren.empty()) return {};
  std::string places;
  AddPlacesBelow(places, *place);
  const auto query = TDbProviderFactory::GetQuery();
  OpenLoginsOf(*query, places);
  std::string logins;
  for (; !query->Eof(); query->Next())
    logins.append(Trim(query->FieldByName("code").AsString())).append("\r\n");
  return LinesAsList(logins);
}

std::string TPartyFuncs::SuperOIDEx(const std::string& user, const std::string& mapName) {
  const TPositionMapItem* const place = FindPlace(Unescaped(user), mapName);
  return place == nullptr ? std::string{} : std::to_string(place->FParent->FID);
}

std::string TPartyFuncs::UnderOIDSEx(const std::string& user, const std::string& mapName) {
  const TPositionMapItem* const place = FindPlace(Unescaped(user), mapName);
  std::string places;
  if (place == nullptr) return places;
  for (const auto& child : place->FChildren) {
    if (!places.empty()) places += ',';
    places += std::to_string(child->FID);
  }
  return places;
}

}  // namespace zanrole
