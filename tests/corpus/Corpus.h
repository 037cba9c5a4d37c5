#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Zandbs.h"
#include "host/query/Adaptation.h"

namespace zantest {

/// A statement that the module has sent while its tests ran.
struct TCorpusStatement {
  zanrole::TDialect Dialect;
  bool OnSystem;
  std::string Text;
  std::string Test;     ///< the first one that made it
  std::string Refused;  ///< why every server refuses it; empty for a sound statement
};

/// What the test programs that ran before have left in the folder that the environment names. Raises
/// std::runtime_error when there is none: ctest runs them in the right order.
const std::vector<TCorpusStatement>& Corpus();
std::vector<TCorpusStatement> CorpusOf(zanrole::TDialect dialect);

/// What `call MySql_execute_MultiSql(…)` runs; any other statement as it is.
std::string WithoutMultiSqlCall(const std::string& text);

/// A report of what is wrong, one entry for each statement.
class TFaults {
 public:
  /// Takes the message of an engine, empty when it took the statement: what must be refused has to be.
  void Add(const TCorpusStatement& statement, std::string_view message);
  /// Each fault with the test and the statement; empty without faults.
  std::string Report() const;

 private:
  int FCount = 0;
  std::string FText;
};

/// The place of the table and of the column in "alter table T add C …"; false for any other statement.
struct TAddedColumn {
  std::string Table;
  std::string Column;
};
bool AddsColumn(const zanhost::TTokens& statement, TAddedColumn& added);

}  // namespace zantest
