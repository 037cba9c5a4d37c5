#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "host/query/Odbc/OdbcDatabase.h"

namespace zantest {

/// A driver to servers that this machine does not have: notes what it is asked, answers what a test wants.
class TFakeOdbc {
 public:
  /// The driver of the running test; one at a time.
  explicit TFakeOdbc(std::string productName);
  ~TFakeOdbc();
  TFakeOdbc(const TFakeOdbc&) = delete;
  TFakeOdbc& operator=(const TFakeOdbc&) = delete;

  /// The rows of the next statement that holds this piece.
  void Answer(std::string_view piece, std::vector<std::string> columns, std::vector<std::string> cells);
  /// What the next statement that holds this piece fails with.
  void Fail(std::string_view piece, zanhost::TOdbcError error);

  /// A session whose driver is this one.
  std::unique_ptr<zanhost::TOdbcDatabase> Open(const std::string& options = {});

  std::vector<std::string> Sent;   ///< texts, in their order; "[begin]", "[keep]", "[undo]" by the driver
  std::vector<std::string> Bound;  ///< values of the prepared statement that ran last
  std::vector<std::string> Connections;  ///< connection strings
  int Prepared = 0;
  int TimeLimit = 0;  ///< seconds, of the statement that was made last

 private:
  friend class TFakeLink;
  friend class TFakeStatement;

  struct TScripted {
    std::string Piece;
    std::vector<std::string> Columns, Cells;
    bool Fails = false;
    zanhost::TOdbcError Error;
  };

  static std::unique_ptr<zanhost::TOdbcLink> Connect(const std::string& connection);
  zanhost::TOdbcAnswer Run(const std::string& text);

  static TFakeOdbc* FCurrent;
  std::string FProductName;
  std::deque<TScripted> FScripted;
};

}  // namespace zantest
