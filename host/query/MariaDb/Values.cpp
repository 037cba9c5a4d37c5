#include "host/query/MariaDb/Values.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include "host/query/LiteralBinding.h"

namespace zanhost {

using zanrole::TZanCells;
using zanrole::TZanValue;

namespace {

/// The text as a number; nothing when the number is too large.
template <typename TNumber>
std::optional<TNumber> NumberOf(std::string_view text) {
  TNumber number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// A number that is too large is added as it stands.

void AddInteger(TZanCells& cells, std::string_view text) {
  const auto number = NumberOf<std::int64_t>(text);
  number ? cells.AddInteger(*number) : cells.AddText(text);
}

void AddReal(TZanCells& cells, std::string_view text) {
  const auto number = NumberOf<double>(text);
  number ? cells.AddReal(*number) : cells.AddText(text);
}

std::int64_t BitsOf(std::string_view bytes) {
  std::uint64_t bits = 0;
  for (const char byte : bytes) bits = bits << 8 | static_cast<unsigned char>(byte);
  return static_cast<std::int64_t>(bits);
}

/// The client reads what is bound and never writes there.
void Point(MYSQL_BIND& bind, enum_field_types type, const void* value) {
  bind.buffer_type = type;
  bind.buffer = const_cast<void*>(value);
}

}  // namespace

void AddCell(TZanCells& cells, const MYSQL_FIELD& field, const char* data, unsigned long length) {
  if (data == nullptr) return cells.AddNull();
  const std::string_view text(data, length);
  switch (field.type) {
    case MYSQL_TYPE_TINY:
    case MYSQL_TYPE_SHORT:
    case MYSQL_TYPE_INT24:
    case MYSQL_TYPE_LONG:
    case MYSQL_TYPE_LONGLONG:
    case MYSQL_TYPE_YEAR:
      return AddInteger(cells, text);
    case MYSQL_TYPE_DECIMAL:
    case MYSQL_TYPE_NEWDECIMAL:
      return field.decimals == 0 ? AddInteger(cells, text) : AddReal(cells, text);
    case MYSQL_TYPE_FLOAT:
    case MYSQL_TYPE_DOUBLE:
      return AddReal(cells, text);
    case MYSQL_TYPE_BIT:
      return cells.AddInteger(BitsOf(text));
    default:
      return cells.AddText(text);
  }
}

void TMariaDbBinding::Set(std::size_t marker, const TZanValue& value) {
  MYSQL_BIND& bind = FBinds[marker];
  if (std::holds_alternative<std::monostate>(value)) {
    bind.buffer_type = MYSQL_TYPE_NULL;
  } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
    Point(bind, MYSQL_TYPE_LONGLONG, number);
  } else if (const auto* real = std::get_if<double>(&value)) {
    Point(bind, MYSQL_TYPE_DOUBLE, real);
  } else if (const auto* truth = std::get_if<bool>(&value)) {
    Point(bind, MYSQL_TYPE_TINY, truth);
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    BindText(marker, *text);
  } else {
    BindText(marker, FTexts[marker] = zanrole::DateTimeToText(std::get<zanrole::TDateTime>(value)));
  }
}

void TMariaDbBinding::Set(std::size_t marker, const TToken& literal) {
  if (literal.Kind == TTokenKind::Number) {
    FNumbers[marker] = IntegerOf(literal);
    Point(FBinds[marker], MYSQL_TYPE_LONGLONG, &FNumbers[marker]);
  } else if (const auto text = WrittenContent(literal)) {
    BindText(marker, *text);
  } else {
    BindText(marker, FTexts[marker] = LiteralContent(literal));
  }
}

void TMariaDbBinding::BindText(std::size_t marker, std::string_view text) {
  Point(FBinds[marker], MYSQL_TYPE_STRING, text.data());
  FBinds[marker].buffer_length = static_cast<unsigned long>(text.size());
}

bool ReadRows(MYSQL_STMT* statement, const MYSQL_RES& columns, TZanCells& cells) {
  constexpr unsigned long kRoomOfNumber = 64;
  // The cells are asked for one by one: the client refuses rows for a bound row when the table has got
  // another column since the statement was prepared.
  std::string text;
  int state = 0;
  while ((state = mysql_stmt_fetch(statement)) == 0) {
    for (unsigned i = 0; i < columns.field_count; ++i) {
      text.resize(std::max({text.size(), columns.fields[i].max_length, kRoomOfNumber}));
      MYSQL_BIND cell{};
      unsigned long length = 0;
      my_bool isNull = 0;
      cell.buffer_type = MYSQL_TYPE_STRING;
      cell.buffer = text.data();
      cell.buffer_length = static_cast<unsigned long>(text.size());
      cell.length = &length;
      cell.is_null = &isNull;
      if (mysql_stmt_fetch_column(statement, &cell, i, 0) != 0) return false;
      AddCell(cells, columns.fields[i], isNull != 0 ? nullptr : text.data(), length);
    }
  }
  return state == MYSQL_NO_DATA;
}

}  // namespace zanhost
