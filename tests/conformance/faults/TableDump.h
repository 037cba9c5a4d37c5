#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/conformance/Engine.h"

namespace zantest {

/// A table: "data" or "system", and its name.
using TTableKey = std::pair<std::string, std::string>;

/// The rows of one table, in an order of their own.
using TTableRows = std::vector<std::vector<zanrole::TZanValue>>;

/// What all tables hold. Moments that a clock gave read alike, so that what was done at different times
/// compares.
using TTableDump = std::map<TTableKey, TTableRows>;

/// The tables of both databases of an engine, as they were when it was made.
class TTables {
 public:
  /// `database` must outlive the object.
  TTables(const TEngine& engine, zanhost::TDatabase& database);

  TTableDump Dump() const;
  /// Brings the rows back to what they were.
  void Restore(const TTableDump& wanted) const;

 private:
  std::unique_ptr<zanrole::TZANQuery> QueryOn(const std::string& database) const;
  TTableRows Read(const TTableKey& table, const std::vector<std::string>& columns) const;

  zanhost::TDatabase* FDatabase;
  std::map<TTableKey, std::vector<std::string>> FColumns;
};

/// What differs, for a person; empty when nothing does.
std::string Difference(const TTableDump& found, const TTableDump& expected);

}  // namespace zantest
