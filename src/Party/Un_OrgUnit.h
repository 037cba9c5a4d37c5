#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Zandbs.h"

namespace zanrole {

class TTreeNode;

/// A node of the organisation in memory over one row of `PartyH`, and the list of its child units. Children
/// belong to the list that loaded them, not to their parent; only those taken with AdoptChild are its own.
class ZAN_EXPORT TOrgUnit {
 public:
  TOrgUnit() = default;
  /// Reads the row of this identity; raises EZanError when there is none.
  explicit TOrgUnit(int AId);
  virtual ~TOrgUnit();
  TOrgUnit(const TOrgUnit&) = delete;
  TOrgUnit& operator=(const TOrgUnit&) = delete;

  int ID = 0;        ///< `DjLsh`
  int parentID = 0;  ///< `Parent`
  int sequence = 0;
  bool IsActive = false;
  TOrgUnit* parentUnit = nullptr;  ///< set when the tree is built; not owned
  std::string kind;                ///< `Type`
  std::string name;
  std::string title;
  std::string code;
  bool isNew = false;            ///< the next save inserts; a save does not clear it
  int tempDjlsh = 0;             ///< an existing entity row that the node is to be bound to
  std::string positionCode;      ///< the kind of position of a new position
  int mainPO = 0;                ///< the row of the person's main post
  bool UserPartyUpdate = false;  ///< a save of a person also touches `UserH` and `STUsers`
  bool PEIsManager = false;      ///< a manager post
  std::string LongName;
  TTreeNode* OwnerTreeNode = nullptr;  ///< the console's node; not owned
  /// Where RootAddChild puts units without a parent in this tree; a unit without the list drops them.
  std::optional<std::vector<TOrgUnit*>> left_items;

  // Each compares `kind` exactly.
  bool isCompany() const { return kind == "Company"; }
  bool isDepartment() const { return kind == "Department"; }
  bool isUser() const { return kind == "User"; }
  bool isPositionEntity() const { return kind == "PositionEntity"; }
  bool isWorkGroup() const { return kind == "WorkGroup"; }
  /// The word for the kind in the language of the login; empty for a kind without one.
  std::string GetKindCName() const;

  /// Takes the current row of a result of `PartyH`. Columns `IsActive`, `LongName` and `MainPO` may be
  /// absent.
  void LoadFromDB(TDataSet& DataSet);
  /// Copies identity and texts, not the children.
  void CopyFrom(const TOrgUnit& AOrgUnit);

  const std::vector<TOrgUnit*>& Children() const { return FChildren; }
  /// Forgets the children, and frees those of its own.
  void Clear();
  /// The child must outlive its place in the list.
  void AddChild(TOrgUnit& AOrgUnit) { FChildren.push_back(&AOrgUnit); }
  /// Adds a child that the unit frees with itself.
  TOrgUnit& AdoptChild(std::unique_ptr<TOrgUnit> AOrgUnit);
  /// Hangs the unit below the one of this tree that is its parent by identity.
  void RootAddChild(TOrgUnit& AOrgUnit);
  /// The unit itself, a child, or the first found depth-first; null when there is none.
  TOrgUnit* FindChildUnitByID(int AUnitID);

  /// Writes name and title to the entity, the account of a person and the node, in this order. A statement
  /// that fails is swallowed, and those after it do not run: nothing reports it.
  void UpdateOrganUnit() const;

 private:
  std::vector<TOrgUnit*> FChildren;
  std::vector<std::unique_ptr<TOrgUnit>> FOwnChildren;
};

// The three below have an identity, name and title of their own beside those of the node.

class ZAN_EXPORT TOrgnize : public TOrgUnit {
 public:
  ~TOrgnize() override;
  int ID = 0;
  std::string name;
  std::string title;
};

class ZAN_EXPORT TDepartment : public TOrgUnit {
 public:
  ~TDepartment() override;
  int ID = 0;
  std::string name;
  std::string title;

  /// Reads a row of the platform's table `DepartmentsH` (not `DepartmentH`) by its name.
  void SetValueByTitle(std::string_view departmentName);
};

class ZAN_EXPORT TWorkGroup : public TOrgUnit {
 public:
  ~TWorkGroup() override;
  int ID = 0;
  std::string name;
  std::string title;
};

/// Units that the list owns.
class ZAN_EXPORT TOrgUnitList {
 public:
  TOrgUnitList() = default;
  ~TOrgUnitList() { Clear(); }
  TOrgUnitList(const TOrgUnitList&) = delete;
  TOrgUnitList& operator=(const TOrgUnitList&) = delete;

  TOrgUnit& Add(std::unique_ptr<TOrgUnit> unit);
  /// Frees every unit, the last one first.
  void Clear();
  int Count() const { return static_cast<int>(FItems.size()); }
  /// REQUIRES: 0 <= index < Count(). The reference lives until Clear.
  TOrgUnit& operator[](int index) const { return *FItems[static_cast<std::size_t>(index)]; }

  auto begin() const { return FItems.begin(); }
  auto end() const { return FItems.end(); }

  /// The list holds a unit with an identity above 0 that is not `peId`.
  bool hasOthPEntity(int peId) const;

 private:
  std::vector<std::unique_ptr<TOrgUnit>> FItems;
};

}  // namespace zanrole
