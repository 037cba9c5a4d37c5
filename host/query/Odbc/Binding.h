#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string>
#include <vector>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

/// The values of a prepared statement's parameters, in the form in which a driver takes them. It must outlive
/// the run, and so must the values.
class TOdbcBinding {
 public:
  explicit TOdbcBinding(const std::vector<const zanrole::TZanValue*>& values);
  /// Binds the parameter at the position, counted from 1.
  SQLRETURN Bind(SQLHANDLE statement, SQLUSMALLINT position) const;

 private:
  struct TBound {
    SQLSMALLINT ValueType = SQL_C_WCHAR;
    SQLSMALLINT ColumnType = SQL_WVARCHAR;
    SQLULEN Size = 1;
    SQLLEN Length = SQL_NULL_DATA;
    SQLINTEGER Number = 0;
    double Fraction = 0;
    SQL_TIMESTAMP_STRUCT Moment{};
    std::string Digits;
    std::u16string Text;
    const void* Data = nullptr;
  };
  struct TFiller;

  std::vector<TBound> FBound;
};

}  // namespace zanhost
