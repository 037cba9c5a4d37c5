#include "host/query/MariaDb/Values.h"

#include <charconv>
#include <span>
#include <string_view>

namespace zanhost {

using zanrole::TZanValue;

namespace {

/// The text as a number; as it stands when the number is too large.
template <typename TNumber>
TZanValue NumberOf(std::string_view text) {
  TNumber number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::string(text);
  return number;
}

TZanValue BitsOf(std::string_view bytes) {
  std::uint64_t bits = 0;
  for (const char byte : bytes) bits = bits << 8 | static_cast<unsigned char>(byte);
  return static_cast<std::int64_t>(bits);
}

struct TBinder {
  MYSQL_BIND& Bind;
  std::string& Moment;

  void operator()(std::monostate) const { Bind.buffer_type = MYSQL_TYPE_NULL; }
  void operator()(const std::int64_t& number) const { Point(MYSQL_TYPE_LONGLONG, &number); }
  void operator()(const double& number) const { Point(MYSQL_TYPE_DOUBLE, &number); }
  void operator()(const bool& truth) const { Point(MYSQL_TYPE_TINY, &truth); }
  void operator()(const std::string& text) const {
    Point(MYSQL_TYPE_STRING, text.data());
    Bind.buffer_length = static_cast<unsigned long>(text.size());
  }
  void operator()(zanrole::TDateTime time) const {
    Moment = zanrole::DateTimeToText(time);
    (*this)(Moment);
  }

  /// The client reads what is bound and never writes there.
  void Point(enum_field_types type, const void* value) const {
    Bind.buffer_type = type;
    Bind.buffer = const_cast<void*>(value);
  }
};

/// Where the client puts one row, each cell as text.
class TRowBuffer {
 public:
  explicit TRowBuffer(std::span<const MYSQL_FIELD> columns)
      : FColumns(columns),
        FBinds(columns.size()),
        FTexts(columns.size()),
        FLengths(columns.size()),
        FNulls(columns.size()) {
    constexpr unsigned long kRoomOfNumber = 64;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      FTexts[i].resize(std::max(columns[i].max_length, kRoomOfNumber));
      FBinds[i].buffer_type = MYSQL_TYPE_STRING;
      FBinds[i].buffer = FTexts[i].data();
      FBinds[i].buffer_length = static_cast<unsigned long>(FTexts[i].size());
      FBinds[i].length = &FLengths[i];
      FBinds[i].is_null = &FNulls[i];
    }
  }

  MYSQL_BIND* Binds() { return FBinds.data(); }

  void TakeRow(std::vector<TZanValue>& cells) const {
    for (std::size_t i = 0; i < FColumns.size(); ++i) {
      if (FNulls[i] != 0)
        cells.emplace_back();
      else
        cells.push_back(ReadCell(FColumns[i], FTexts[i].data(), FLengths[i]));
    }
  }

 private:
  std::span<const MYSQL_FIELD> FColumns;
  std::vector<MYSQL_BIND> FBinds;
  std::vector<std::string> FTexts;
  std::vector<unsigned long> FLengths;
  std::vector<my_bool> FNulls;
};

}  // namespace

TZanValue ReadCell(const MYSQL_FIELD& field, const char* data, unsigned long length) {
  const std::string_view text(data, length);
  switch (field.type) {
    case MYSQL_TYPE_TINY:
    case MYSQL_TYPE_SHORT:
    case MYSQL_TYPE_INT24:
    case MYSQL_TYPE_LONG:
    case MYSQL_TYPE_LONGLONG:
    case MYSQL_TYPE_YEAR:
      return NumberOf<std::int64_t>(text);
    case MYSQL_TYPE_DECIMAL:
    case MYSQL_TYPE_NEWDECIMAL:
      return field.decimals == 0 ? NumberOf<std::int64_t>(text) : NumberOf<double>(text);
    case MYSQL_TYPE_FLOAT:
    case MYSQL_TYPE_DOUBLE:
      return NumberOf<double>(text);
    case MYSQL_TYPE_BIT:
      return BitsOf(text);
    default:
      return std::string(text);
  }
}

void TMariaDbBinding::Set(std::size_t marker, const TZanValue& value) {
  std::visit(TBinder{FBinds[marker], FMoments[marker]}, value);
}

bool ReadRows(MYSQL_STMT* statement, const MYSQL_RES& columns, std::vector<TZanValue>& cells) {
  TRowBuffer row({columns.fields, columns.field_count});
  if (mysql_stmt_bind_result(statement, row.Binds()) != 0) return false;
  int state = 0;
  while ((state = mysql_stmt_fetch(statement)) == 0) row.TakeRow(cells);
  return state == MYSQL_NO_DATA;
}

}  // namespace zanhost
