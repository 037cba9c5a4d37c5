#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Frame/Dialects.h"
#include "tests/conformance/Engine.h"
#include "tests/support/RecordingHost.h"

namespace zantest {

/// A host whose databases are those of an engine; everything else is recorded. The module's session is
/// current.
class TEngineHost : public TRecordingHost {
 public:
  explicit TEngineHost(zanhost::TDatabase& database) : FDatabase(database) {}
  zanrole::TDatabaseServices& Databases() override { return FDatabase; }

 private:
  zanhost::TDatabase& FDatabase;
};

using TParamValues = std::vector<std::pair<std::string, TZanValue>>;
using TTextRow = std::vector<std::string>;

/// What the cases share: one engine with empty databases, one session, the module working on it.
/// A case is named Topic_Rule and holds for every engine.
class Conformance : public testing::TestWithParam<TEngineDeclaration> {
 protected:
  void SetUp() override;

  TEngine& Engine() { return *FEngine; }
  zanhost::TDatabase& Database() { return *FDatabase; }
  TEngineHost& Host() { return *FHost; }
  std::unique_ptr<zanrole::TZANQuery> Query() { return Database().GetQuery(); }

  /// Makes the table Cases(ID integer with a key, Name text of 200, Note long text, Flag Boolean, Moment date
  /// and time), as most cases need no more.
  void MakeCasesTable();

  /// Runs a statement or batch.
  void Exec(std::string_view text, const TParamValues& params = {});
  /// The rows of a statement as texts; a null reads "(null)".
  std::vector<TTextRow> Rows(std::string_view text, const TParamValues& params = {});
  /// The first cell of the first row as text; "(none)" without a row.
  std::string Cell(std::string_view text, const TParamValues& params = {});
  /// The message of the EDatabaseError that the statement raises; a failed test when it raises none.
  std::string FaultOf(std::string_view text);

  static std::vector<TTextRow> RowsOf(zanrole::TZANQuery& query);

 private:
  std::unique_ptr<TEngine> FEngine;
  std::unique_ptr<zanhost::TDatabase> FDatabase;
  std::unique_ptr<TEngineHost> FHost;
};

}  // namespace zantest
