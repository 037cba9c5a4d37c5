#pragma once

#include <memory>
#include <string>

#include "Party/Un_OrgUnit.h"

namespace zanrole {

/// Values of `PositionEntityH.UpperPosition` that name no position.
inline constexpr int kNoUpperPosition = -9;

/// A job title of the catalogue `PositionH`, which a document of the platform maintains.
struct TPositionUnit {
  int ID = 0;
  std::string name;
  std::string Code;
};

/// A position of the catalogue placed in one department: a node with its row of `PositionEntityH`.
/// Operations that run a statement raise EDatabaseError when it fails.
class ZAN_EXPORT TPositionEntity : public TOrgUnit {
 public:
  TPositionEntity() = default;
  /// Reads both rows of the position; an unknown identity leaves an empty unit.
  explicit TPositionEntity(int AObjID);
  ~TPositionEntity() override;

  int FupperPositionID = 0;  ///< the superior as last read; 0 when it was not
  TPositionEntity* upperPosition =
      nullptr;  ///< the superior; set by GetUpperPosition or a console; not owned
  std::unique_ptr<TOrgUnit> FUpperDepartment;

  /// Takes the current row of a join of `PartyH` and `PositionEntityH`.
  void LoadPositionFromDB(TDataSet& dataSet);
  void copyFromOrgUnit(const TOrgUnit& orgUnit);

  /// The superior, read at first use; a unit with the identity 0 when there is none. Lives as long as this.
  TPositionEntity& GetUpperPosition();
  int GetUpperPositionID();
  /// The department, read at first use; raises EZanError when it has no row. Lives as long as this.
  TOrgUnit& GetUpperDepartment();

  /// Writes the identity of `upperPosition`. REQUIRES: it is set.
  void saveUpperPosition() const;
  /// Writes `FupperPositionID`.
  void updateUpperPositionID() const;
  /// Writes that the position has no superior.
  void clearUpperPosition() const;

  /// The candidate may become the superior: it is neither this position nor below it. Reads all positions.
  bool testUpperPosition(const TPositionEntity& AUpperPosition) const;
  bool testUpperPosition(int AUpperPositionID) const;

  /// Writes parent, state, name and title of the node, then name, title and superior of the entity. Raises
  /// EZanError.
  void update() const;

 private:
  std::unique_ptr<TPositionEntity> FLoadedUpperPosition;
};

}  // namespace zanrole
