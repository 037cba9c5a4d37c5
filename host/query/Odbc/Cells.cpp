#include "host/query/Odbc/Cells.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "host/query/Odbc/WideText.h"

namespace zanhost {

using zanrole::TZanCells;

namespace {

constexpr std::size_t kLongestName = 256;
/// Units of a piece; most cells are one.
constexpr std::size_t kPiece = 2048;

bool IsNumber(SQLSMALLINT type) {
  switch (type) {
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
    case SQL_DECIMAL:
    case SQL_NUMERIC:
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return true;
    default:
      return false;
  }
}

bool IsBinary(SQLSMALLINT type) {
  return type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY;
}

/// Adds an integer when it is written as one; the text as it stands when it is no number that fits.
void AddNumber(TZanCells& cells, const std::string& text) {
  const char* const end = text.data() + text.size();
  std::int64_t integer = 0;
  if (const auto read = std::from_chars(text.data(), end, integer); read.ec == std::errc() && read.ptr == end)
    return cells.AddInteger(integer);
  double fraction = 0;
  if (const auto read = std::from_chars(text.data(), end, fraction);
      read.ec == std::errc() && read.ptr == end)
    return cells.AddReal(fraction);
  cells.AddText(text);
}

std::string MomentText(const SQL_TIMESTAMP_STRUCT& moment) {
  std::string text = fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", moment.year, moment.month, moment.day,
                                 moment.hour, moment.minute, moment.second);
  if (const SQLUINTEGER milliseconds = moment.fraction / 1'000'000; milliseconds != 0)
    text += fmt::format(".{:03}", milliseconds);
  return text;
}

}  // namespace

SQLRETURN TOdbcCells::Describe(std::vector<std::string>& names) {
  std::u16string name(kLongestName, u'\0');
  for (SQLUSMALLINT column = 1; column <= FColumns; ++column) {
    SQLSMALLINT length = 0, digits = 0, nullable = 0;
    SQLULEN size = 0;
    const SQLRETURN described = SQLDescribeColW(FStatement, column, WideArgument(name), kLongestName, &length,
                                                &FTypes.emplace_back(), &size, &digits, &nullable);
    if (!SQL_SUCCEEDED(described)) return described;
    const auto units = std::min<std::size_t>(static_cast<std::size_t>(length), kLongestName - 1);
    names.push_back(FromWide(std::u16string_view(name).substr(0, units)));
  }
  return SQL_SUCCESS;
}

SQLRETURN TOdbcCells::ReadRow(TZanCells& cells) {
  for (SQLUSMALLINT column = 1; column <= FColumns; ++column) {
    const SQLRETURN read = ReadCell(column, cells);
    if (!SQL_SUCCEEDED(read)) return read;
  }
  return SQL_SUCCESS;
}

SQLRETURN TOdbcCells::ReadCell(SQLUSMALLINT column, TZanCells& cells) {
  const SQLSMALLINT type = FTypes[column - 1U];
  if (type == SQL_TYPE_TIMESTAMP) return ReadMoment(column, cells);
  if (type == SQL_BIT) return ReadBit(column, cells);
  bool isNull = false;
  if (IsNumber(type) || IsBinary(type)) {
    const SQLRETURN read = ReadPieces(column, IsNumber(type) ? SQL_C_CHAR : SQL_C_BINARY, FBytes, isNull);
    if (!SQL_SUCCEEDED(read)) return read;
    if (isNull)
      cells.AddNull();
    else
      IsNumber(type) ? AddNumber(cells, FBytes) : cells.AddText(FBytes);
    return read;
  }
  const SQLRETURN read = ReadPieces(column, SQL_C_WCHAR, FWide, isNull);
  if (SQL_SUCCEEDED(read)) isNull ? cells.AddNull() : cells.AddText(FromWide(FWide));
  return read;
}

SQLRETURN TOdbcCells::ReadMoment(SQLUSMALLINT column, TZanCells& cells) {
  SQL_TIMESTAMP_STRUCT moment{};
  SQLLEN length = 0;
  const SQLRETURN read =
      SQLGetData(FStatement, column, SQL_C_TYPE_TIMESTAMP, &moment, sizeof(moment), &length);
  if (SQL_SUCCEEDED(read)) length == SQL_NULL_DATA ? cells.AddNull() : cells.AddText(MomentText(moment));
  return read;
}

SQLRETURN TOdbcCells::ReadBit(SQLUSMALLINT column, TZanCells& cells) {
  unsigned char bit = 0;
  SQLLEN length = 0;
  const SQLRETURN read = SQLGetData(FStatement, column, SQL_C_BIT, &bit, sizeof(bit), &length);
  if (SQL_SUCCEEDED(read)) length == SQL_NULL_DATA ? cells.AddNull() : cells.AddInteger(bit);
  return read;
}

template <typename TUnit>
SQLRETURN TOdbcCells::ReadPieces(SQLUSMALLINT column, SQLSMALLINT type, std::basic_string<TUnit>& whole,
                                 bool& isNull) {
  // Texts are given with a zero behind each piece, bytes are not.
  const std::size_t zero = type == SQL_C_BINARY ? 0 : 1;
  std::array<TUnit, kPiece> piece;
  whole.clear();
  for (;;) {
    SQLLEN rest = 0;
    const SQLRETURN read = SQLGetData(FStatement, column, type, piece.data(), sizeof(piece), &rest);
    if (read == SQL_NO_DATA) return SQL_SUCCESS;
    if (!SQL_SUCCEEDED(read)) return read;
    isNull = rest == SQL_NULL_DATA;
    if (isNull) return read;
    const auto units = rest == SQL_NO_TOTAL ? kPiece : static_cast<std::size_t>(rest) / sizeof(TUnit);
    whole.append(piece.data(), std::min(units, kPiece - zero));
    if (read == SQL_SUCCESS) return read;
  }
}

}  // namespace zanhost
