#pragma once

#include <initializer_list>
#include <string>
#include <variant>

#include "Frame/Host/Classes.h"

namespace zantest {

/// A value of a row: null, a number or a text.
using TRowValue = std::variant<std::monostate, int, std::string>;

struct TCell {
  const char* Column;
  TRowValue Value;
};

/// Writes rows into the tables of the product: collects the statements and sends them as one batch for each
/// database. REQUIRES of Flush: the session of the database is current.
class TRowInserter {
 public:
  /// A table of the data database, or of the system database.
  void Insert(const std::string& table, std::initializer_list<TCell> row);
  void InsertIntoSystem(const std::string& table, std::initializer_list<TCell> row);
  /// A statement on the data database.
  void Run(const std::string& statement);
  /// Sends what was collected. Raises EDatabaseError.
  void Flush();

 private:
  zanrole::TStringList FData;
  zanrole::TStringList FSystem;
};

}  // namespace zantest
