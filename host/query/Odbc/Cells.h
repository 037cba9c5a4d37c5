#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string>
#include <vector>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

/// Reads the rows of the result that a statement stands on, cell by cell. Numbers become numbers; dates and
/// times become texts as other engines give them.
class TOdbcCells {
 public:
  TOdbcCells(SQLHANDLE statement, SQLSMALLINT columns)
      : FStatement(statement), FColumns(static_cast<SQLUSMALLINT>(columns)) {}

  /// Reads names and types of the columns.
  SQLRETURN Describe(std::vector<std::string>& names);
  /// Adds the cells of the current row. REQUIRES: Describe succeeded.
  SQLRETURN ReadRow(zanrole::TZanCells& cells);

 private:
  // Each adds the cell when it could be read.
  SQLRETURN ReadCell(SQLUSMALLINT column, zanrole::TZanCells& cells);
  SQLRETURN ReadMoment(SQLUSMALLINT column, zanrole::TZanCells& cells);
  SQLRETURN ReadBit(SQLUSMALLINT column, zanrole::TZanCells& cells);
  /// Reads a cell piece by piece into `whole`; a piece may end inside a character. `isNull` tells of a null.
  template <typename TUnit>
  SQLRETURN ReadPieces(SQLUSMALLINT column, SQLSMALLINT type, std::basic_string<TUnit>& whole, bool& isNull);

  SQLHANDLE FStatement;
  SQLUSMALLINT FColumns;
  std::vector<SQLSMALLINT> FTypes;
  std::string FBytes;
  std::u16string FWide;
};

}  // namespace zanhost
