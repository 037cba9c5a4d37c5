#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Party/Un_OrgUnit.h"

namespace zanrole {

/// Loads, saves and deletes the units of the organisation. Keeps no state: each operation takes a fresh
/// query. There are no transactions: where a statement fails, those before it stay. Operations raise
/// EDatabaseError when a statement fails, unless they say otherwise.
class ZAN_EXPORT TOrgUnitSQL {
 public:
  // Loading. Each adds to a list, which owns the units, unless it says otherwise.

  /// The statement that reads companies, departments and positions.
  static std::string OpenSql();
  /// Reads the same units, parents of one kind together, and which posts are manager posts.
  static void LoadOrgUnitsToList(TOrgUnitList& ToList);
  /// Empties the unit and fills it with the active people of the position, which it owns.
  static void LoadPositionEntityUsers(TOrgUnit& AOrgUnit);
  /// The people of the position, active or not. Raises EZanError.
  static void ListUsersByParent(const TOrgUnit& parent, TOrgUnitList& UserList);
  /// A new list of the units of this kind and code. Raises EZanError.
  static std::unique_ptr<TOrgUnitList> FindOrganUnits(std::string_view AType, std::string_view ACode);
  /// Identity of the first node of this kind and code; -1 when there is none.
  static int GetPartyDjLsh(std::string_view type, std::string_view code);

  // Saving. Each raises EZanError; the unit keeps its identity then.

  /// Inserts or updates the node, then its entity or, for a unit that says so, person and account.
  static void SaveOrganUnits(const TOrgUnit& AOrgUnit);
  /// Inserts or updates the node alone: its entity was made by a document of the host.
  static void SaveOrganUnitsWithoutExtend(const TOrgUnit& AOrgUnit);
  /// Places a person, known by `code`, in the position `parentID` and gives the unit its new identity.
  /// Without `keepOthers` the person's rows in other positions are deleted, and the new one is the main post.
  static void PositionAssignUser(TOrgUnit& AOrgUnit, bool keepOthers);

  // Deleting.

  /// Takes the node out of the tree and keeps its entity; a person's main post goes to the recycle bin. A
  /// statement that fails is swallowed. The flag has no effect.
  static void DeleteOrgUnit(const TOrgUnit& AOrgUnit, bool flag);
  /// Deletes the node and its entity.
  static void DeleteOrgUnitEntity(const TOrgUnit& AOrgUnit);
  /// DeleteOrgUnit for everything below the unit, then for itself.
  static void DeleteRelation(const TOrgUnit& AOrgUnit);
  /// Deletes the people of a position, then everything below the unit, then itself; entities go too.
  static void Delete(const TOrgUnit& AOrgUnit);

  // Order among siblings, and managers.

  static void UpdateOrgUnitSequence(const TOrgUnit& AOrgUnit);
  /// The sequences of all units as one batch.
  static void BatUpdateOrgUnitSequence(const TOrgUnitList& list);
  /// Reads whether the position is a manager post.
  static void CheckPEManagerOne(TOrgUnit& AOrgUnit);
  /// The same for all units, by one statement.
  static void CheckPEManagers(const TOrgUnitList& list);

 private:
  static void SaveNode(TZANQuery& query, const TOrgUnit& unit);
  static void SaveCompany(TZANQuery& query, const TOrgUnit& unit);
  static void SaveDepartment(TZANQuery& query, const TOrgUnit& unit);
  static void SavePosition(TZANQuery& query, const TOrgUnit& unit);
  static void saveUser(TZANQuery& query, const TOrgUnit& unit);
  static int CreateOID(TZANQuery& query);
};

}  // namespace zanrole
