#pragma once

#include <string>
#include <string_view>

#include "tests/conformance/scenario/Organisation.h"

namespace zantest {

/// The rows of a scenario for an installed, empty database: organisation, accounts and roles, protected
/// objects, rights and domains. docs/scenarios.md tells the lines.
class TScenarioWorld {
 public:
  TScenarioWorld() : FOrganisation(FRows, FNumbers) {}
  TScenarioWorld(const TScenarioWorld&) = delete;
  TScenarioWorld& operator=(const TScenarioWorld&) = delete;

  /// Adds what a line and those below it tell. False when it tells nothing about the world (a login,
  /// questions). Raises EScenarioError for a line that cannot be understood.
  bool Add(const TOutlineLine& line);
  /// Writes what was added. REQUIRES: the session of the database is current. Raises EDatabaseError.
  void Flush() { FRows.Flush(); }
  /// Adds and writes a whole text that holds no questions.
  void AddText(std::string_view text);

  const TNumbers& Numbers() const { return FNumbers; }
  /// The number of something that the scenario names.
  int operator[](const std::string& name) const { return FNumbers.Find(FNowhere, name, "thing of the name"); }

 private:
  void AddRole(const TOutlineLine& line);
  void AddObject(const TOutlineLine& line);
  void AddRights(const TOutlineLine& line);
  void AddDomain(const TOutlineLine& line, const std::string& parentPath, int parent);
  void AddMember(const TOutlineLine& line, int domain);

  TRowInserter FRows;
  TNumbers FNumbers;
  TOrganisation FOrganisation;
  TOutlineLine FNowhere{"(test)", 0, {}, {}, {}};
  int FLastObject = 8000;
  int FLastDomain = 9000;
};

}  // namespace zantest
