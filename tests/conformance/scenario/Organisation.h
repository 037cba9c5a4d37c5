#pragma once

#include <set>
#include <string>

#include "tests/conformance/scenario/Numbers.h"
#include "tests/conformance/scenario/RowInserter.h"

namespace zantest {

/// Makes the rows of the organisation of a scenario, as the consoles keep them: nodes with their entity rows
/// and paths, people with their accounts, position maps. Numbers of nodes, entities, people, accounts and
/// places of maps come from ranges of their own, so that no question can mix them up unnoticed.
class TOrganisation {
 public:
  TOrganisation(TRowInserter& rows, TNumbers& numbers) : FRows(rows), FNumbers(numbers) {}

  /// company, department, position and person lines, and what stands below them.
  void AddNodes(const TOutlineLine& parent);
  /// "detached": people without a place, as in the recycle bin.
  void AddDetached(const TOutlineLine& line);
  /// "kind CODE NAME": a job title of the catalogue.
  void AddKind(const TOutlineLine& line);
  /// "map NAME" with positions below.
  void AddMap(const TOutlineLine& line);
  /// "account LOGIN NAME" and "role LOGIN NAME": rows of STUsers.
  int AddAccount(const TOutlineLine& line, bool isRole);

 private:
  /// What a node takes over from the one above it.
  struct TPlace {
    int Id = -1;
    int Level = 0;
    std::string LongName, LongCode, ParentPath;
  };
  TPlace AddNode(const TOutlineLine& line, const TPlace& parent, const char* type);
  void AddNodesBelow(const TOutlineLine& line, const TPlace& place);
  void AddUnit(const TOutlineLine& line, const TPlace& parent, const char* type, const char* entityTable);
  void AddPosition(const TOutlineLine& line, const TPlace& parent);
  void AddPerson(const TOutlineLine& line, const TPlace& parent, const std::string& upperCode);
  void MakePerson(const TOutlineLine& line, int mainPost);
  void LinkAccount(const TOutlineLine& line, int post);
  void AddPlaces(const TOutlineLine& line, int upper, int map);

  TRowInserter& FRows;
  TNumbers& FNumbers;
  std::set<std::string> FPeople;
  int FLastNode = 1000;
  int FLastEntity = 3000;
  int FLastPerson = 5000;
  int FLastPlace = 7000;
  int FLastAccount = 100;
};

}  // namespace zantest
