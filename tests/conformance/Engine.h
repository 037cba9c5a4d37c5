#pragma once

#include <memory>
#include <string>

#include "host/query/Database.h"

namespace zantest {

/// One engine under test, with databases of its own that nothing else uses: how to reach it, how it spells
/// what the cases need for their tables, and in what it differs.
class TEngine {
 public:
  virtual ~TEngine() = default;

  /// The data URL of the databases, for clients in other processes. Empty when they cannot reach them.
  virtual std::string Url() const { return {}; }
  /// A new session; all sessions of one engine object see the same data.
  virtual std::unique_ptr<zanhost::TDatabase> OpenSession() = 0;
  /// Makes the tables of the product.
  virtual void InstallSchema() = 0;

  // Types of columns, for tables that a case makes.
  virtual std::string TextType(int length) const = 0;
  virtual std::string LongTextType() const = 0;
  virtual std::string BooleanType() const = 0;
  virtual std::string DateTimeType() const = 0;

  /// Table and column, a row for each column that can be written, of the database that a query works on.
  virtual std::string CatalogueStatement() const {
    return "select table_name, column_name from information_schema.columns"
           " where table_schema = database() and is_generated = 'NEVER'";
  }

  /// Limits the time that a session waits for another one that writes.
  virtual void WaitAtMostMilliseconds(zanhost::TDatabase& session, int milliseconds) = 0;

  /// A server of the tests stands behind the engine, which can be killed and started again.
  virtual bool HasServer() const { return false; }
  /// REQUIRES: HasServer().
  virtual void KillServer() {}
  virtual void StartServer() {}

  // Quirks, with the common answer.

  /// Why a union of selects whose columns have no names of their own, or of many selects, cannot be run;
  /// empty when it can.
  virtual std::string WhyNoUnions() { return {}; }
  /// An empty text is stored as null (Oracle).
  virtual bool EmptyTextIsNull() const { return false; }
};

struct TEngineDeclaration {
  std::string Name;
  /// Why the engine cannot be used on this machine; empty when it can.
  std::string (*WhyNot)();
  std::unique_ptr<TEngine> (*Make)();
};

}  // namespace zantest
