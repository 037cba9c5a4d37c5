#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/conformance/Conformance.h"
#include "tests/conformance/faults/Person.h"

namespace zantest {

/// What an operation works with: a database that can be made to fail, a session of the module on it, and a
/// person before a session with a screen.
class TFaultWorld {
 public:
  explicit TFaultWorld(zanhost::TDatabase& engine) : Database(engine), Host(Database) {}
  TPerson& Person() { return FPerson ? *FPerson : FPerson.emplace(Database); }
  bool HasPerson() const { return FPerson.has_value(); }

  TFaultyDatabase Database;
  TEngineHost Host;
  /// What the operation gave.
  std::string Result;

 private:
  std::optional<TPerson> FPerson;
};

/// One operation of the system. A new one is one entry of the table.
struct TFaultOperation {
  /// "call GetDomains", "menu 域管理", "entry SavePassword", or what a person does.
  std::string Name;
  /// Brings the world to where the operation begins; may be empty.
  std::function<void(TFaultWorld& world)> Prepare;
  std::function<void(TFaultWorld& world)> Run;
  /// Shows that the session goes on after a fault. Without it the operation is run once more.
  std::function<void(TFaultWorld& world)> GoOn;
};

/// The rows that all operations begin with.
void MakeFaultTables(zanhost::TDatabase& database);

/// Every operation, those of the exported functions among them.
std::vector<TFaultOperation> FaultOperations();

}  // namespace zantest
