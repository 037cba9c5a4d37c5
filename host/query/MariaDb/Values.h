#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Zandbs.h"
#include "host/query/MariaDb/Handles.h"
#include "host/query/Tokens.h"

namespace zanhost {

/// Adds a cell that the server gave as `length` bytes of text; null data is a null. Numbers become numbers;
/// dates stay the texts that they are.
void AddCell(zanrole::TZanCells& cells, const MYSQL_FIELD& field, const char* data, unsigned long length);

/// The values of a prepared statement's parameters, in the order of its markers. The values that are bound
/// must outlive the run.
class TMariaDbBinding {
 public:
  explicit TMariaDbBinding(std::size_t markers) : FBinds(markers), FNumbers(markers), FTexts(markers) {}
  // REQUIRES: marker is less than the number of markers.
  void Set(std::size_t marker, const zanrole::TZanValue& value);
  void Set(std::size_t marker, const TToken& literal);
  MYSQL_BIND* Binds() { return FBinds.data(); }

 private:
  void BindText(std::size_t marker, std::string_view text);

  std::vector<MYSQL_BIND> FBinds;
  std::vector<std::int64_t> FNumbers;  ///< of literals
  std::vector<std::string> FTexts;     ///< dates and times are sent as texts; literals with quotes inside
};

/// Reads all rows of the result that a prepared statement stands on; false when the reading failed.
/// REQUIRES: the result is stored at the client, with the greatest lengths of its columns.
bool ReadRows(MYSQL_STMT* statement, const MYSQL_RES& columns, zanrole::TZanCells& cells);

}  // namespace zanhost
