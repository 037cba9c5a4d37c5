#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Party/Un_PositionUnit.h"

namespace zanrole {

class TPositionMap;
class TPositionMapList;

/// Rows of `PositionMapH` by the row above them, each group in the order of reading.
class TPositionMapRows {
 public:
  struct TRow {
    int Djlsh;
    int PositionID;
    std::string PositionName;
  };
  /// Takes all rows of the result.
  explicit TPositionMapRows(TDataSet& dataSet);
  const std::vector<TRow>& Below(int upperPosition) const;

 private:
  std::unordered_map<int, std::vector<TRow>> FRows;
};

/// One row of `PositionMapH` in memory: a place in the tree of a map, or the map's root.
class ZAN_EXPORT TPositionMapItem {
 public:
  TPositionMapItem(TPositionMap& owner, TPositionMapItem* parent, TPositionEntity* entity)
      : FOwner(&owner), FEntity(entity), FParent(parent) {}
  TPositionMapItem(const TPositionMapItem&) = delete;
  TPositionMapItem& operator=(const TPositionMapItem&) = delete;

  TPositionMap* FOwner;
  TPositionEntity* FEntity;   ///< shared, owned by the list; null on the root
  TPositionMapItem* FParent;  ///< null on the root
  int FID = -1;               ///< `Djlsh`; -1 until saved
  std::vector<std::unique_ptr<TPositionMapItem>> FChildren;
  bool FChanged = true;

  /// Adds an unsaved child behind the others. It lives until it is deleted or the maps are loaded anew.
  TPositionMapItem& AddChild(TPositionEntity& APosition);
  /// Moves `AItem` with everything below it here and gives it a new place in memory. The items directly below
  /// keep their `FParent`, the item at the old place, until the maps are loaded anew.
  void AcceptChild(TPositionMapItem& AItem);
  /// Deletes the child and everything below it, in the database at once and then in memory.
  /// Raises EDatabaseError; what was deleted before stays deleted.
  void DeleteChild(TPositionMapItem& AChild);
  void ClearChildren();

  /// This item, or the first below it, that places the position; null when there is none.
  TPositionMapItem* DeepFind(int APositionID);
  /// Replaces the children, in memory only. A row whose position is unknown is left out with all below it.
  void LoadChildren(const TPositionMapRows& dataset);
  /// Adds the statement that saves this item, then those of the items below. Draws numbers for new items.
  void ProcessUpdate(TStringList& ASQLBuffer);
  void ChangeUpdated();

 private:
  std::string InsertStatement() const;
  void RemoveChild(const TPositionMapItem& AChild);
};

/// A named tree of positions: who is above whom.
class ZAN_EXPORT TPositionMap {
 public:
  TPositionMap(TPositionMapList& owner, std::string_view name) : FOwner(&owner), FName(name) {}
  TPositionMap(const TPositionMap&) = delete;
  TPositionMap& operator=(const TPositionMap&) = delete;

  TPositionMapList* FOwner;
  std::unique_ptr<TPositionMapItem> FRoot;
  std::string FName;
  bool FChanged = false;  ///< the name was changed and is not saved

  /// `Djlsh` of the root row: -1 until saved, -8 without a root.
  int MapID() const;
  /// Adds a position below `AParent`, or at the first level when that is null. REQUIRES: the map has a root.
  TPositionMapItem& Append(TPositionMapItem* AParent, TPositionEntity& APosition);
  /// The first place of the position from the root downward; null when the map does not hold it.
  TPositionMapItem* Find(int APositionID);
  void ProcessUpdate(TStringList& ASQLBuffer);
  void ChangeUpdated();

 private:
  friend class TPositionMapItem;
  /// Items that gave up their place to another one: those that were below them still name them as parent.
  std::vector<std::unique_ptr<TPositionMapItem>> FLeftPlaces;
};

/// All maps and all positions of the organisation. Pointers into it live until Load.
class ZAN_EXPORT TPositionMapList {
 public:
  TPositionMapList() = default;
  TPositionMapList(const TPositionMapList&) = delete;
  TPositionMapList& operator=(const TPositionMapList&) = delete;

  std::vector<std::unique_ptr<TPositionMap>> FList;
  std::vector<std::unique_ptr<TPositionEntity>> FEntityList;

  int Count() const { return static_cast<int>(FList.size()); }
  /// REQUIRES: 0 <= index < Count().
  TPositionMap& Items(int index) const { return *FList[static_cast<std::size_t>(index)]; }
  /// The first map; null when there is none.
  TPositionMap* Default() const { return FList.empty() ? nullptr : FList.front().get(); }
  /// The first map of exactly this name, the default one for an empty name; null when there is none.
  TPositionMap* FindMap(std::string_view AName) const;
  /// Null for an unknown position.
  TPositionEntity* FindEntity(int APositionID) const;

  /// Adds an unsaved map with its root.
  TPositionMap& Add(std::string_view AName);
  /// Deletes the map's rows and takes it out of the list, which frees it. Raises EZanError.
  void Delete(TPositionMap& AMap);
  /// Saves all maps as one batch. Raises EDatabaseError; the numbers drawn for new rows stay in memory then.
  void update();
  /// Reads everything anew. Where the database holds no map, makes the one of UpdateFromOld.
  void Load();
  /// Makes a map of the chain of superiors of `PositionEntityH` and saves it. Only positions whose superior
  /// is -1 stand at its first level.
  void UpdateFromOld();

 private:
  void LoadEntities(TZANQuery& query);
  void LoadMaps(TZANQuery& query);

  std::unordered_map<int, TPositionEntity*> FEntityIndex;
};

/// The session's one list of maps, loaded at first use. Raises EDatabaseError when it cannot be loaded; the
/// next use tries again.
ZAN_EXPORT TPositionMapList& MapList();
/// Frees the list; the next MapList loads it anew.
ZAN_EXPORT void FreeMapList();

}  // namespace zanrole
