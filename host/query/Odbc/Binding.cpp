#include "host/query/Odbc/Binding.h"

#include <limits>

#include "host/query/Odbc/WideText.h"

namespace zanhost {

namespace {

/// Longer texts are bound as texts without a limit. Servers count in units of UTF-16 or in bytes.
constexpr std::size_t kShortText = 1000;
constexpr SQLULEN kDigitsOfNumber = 19;
constexpr SQLULEN kDigitsOfFraction = 15;
constexpr SQLULEN kSignsOfMoment = 19;

SQL_TIMESTAMP_STRUCT MomentOf(zanrole::TDateTime time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss clock{std::chrono::floor<std::chrono::seconds>(time - day)};
  SQL_TIMESTAMP_STRUCT moment{};
  moment.year = static_cast<SQLSMALLINT>(static_cast<int>(date.year()));
  moment.month = static_cast<SQLUSMALLINT>(static_cast<unsigned>(date.month()));
  moment.day = static_cast<SQLUSMALLINT>(static_cast<unsigned>(date.day()));
  moment.hour = static_cast<SQLUSMALLINT>(clock.hours().count());
  moment.minute = static_cast<SQLUSMALLINT>(clock.minutes().count());
  moment.second = static_cast<SQLUSMALLINT>(clock.seconds().count());
  return moment;
}

}  // namespace

struct TOdbcBinding::TFiller {
  TBound& Bound;

  void operator()(std::monostate) const {}
  void operator()(bool truth) const { (*this)(std::int64_t{truth ? 1 : 0}); }
  void operator()(std::int64_t number) const {
    using TRange = std::numeric_limits<SQLINTEGER>;
    // Not every driver has a type of 64 bits.
    if (number < TRange::min() || number > TRange::max()) {
      Bound.Digits = std::to_string(number);
      return Point(SQL_C_CHAR, SQL_DECIMAL, kDigitsOfNumber, Bound.Digits.data(), Bound.Digits.size());
    }
    Bound.Number = static_cast<SQLINTEGER>(number);
    Point(SQL_C_SLONG, SQL_INTEGER, 0, &Bound.Number, sizeof(Bound.Number));
  }
  void operator()(double fraction) const {
    Bound.Fraction = fraction;
    Point(SQL_C_DOUBLE, SQL_DOUBLE, kDigitsOfFraction, &Bound.Fraction, sizeof(Bound.Fraction));
  }
  void operator()(zanrole::TDateTime time) const {
    Bound.Moment = MomentOf(time);
    Point(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, kSignsOfMoment, &Bound.Moment, sizeof(Bound.Moment));
  }
  void operator()(const std::string& text) const {
    Bound.Text = ToWide(text);
    const bool isShort = Bound.Text.size() <= kShortText;
    // One size for all short texts: servers keep a plan for each.
    Point(SQL_C_WCHAR, isShort ? SQL_WVARCHAR : SQL_WLONGVARCHAR, isShort ? kShortText : Bound.Text.size(),
          Bound.Text.data(), Bound.Text.size() * sizeof(char16_t));
  }

  void Point(SQLSMALLINT valueType, SQLSMALLINT columnType, SQLULEN size, const void* data,
             std::size_t length) const {
    Bound.ValueType = valueType;
    Bound.ColumnType = columnType;
    Bound.Size = size;
    Bound.Data = data;
    Bound.Length = static_cast<SQLLEN>(length);
  }
};

TOdbcBinding::TOdbcBinding(const std::vector<const zanrole::TZanValue*>& values) : FBound(values.size()) {
  for (std::size_t i = 0; i < values.size(); ++i) std::visit(TFiller{FBound[i]}, *values[i]);
}

SQLRETURN TOdbcBinding::Bind(SQLHANDLE statement, SQLUSMALLINT position) const {
  const TBound& bound = FBound[position - 1U];
  const SQLLEN room = bound.Data != nullptr ? bound.Length : 0;
  // The driver reads what is bound as input and does not write there.
  return SQLBindParameter(statement, position, SQL_PARAM_INPUT, bound.ValueType, bound.ColumnType, bound.Size,
                          0, const_cast<SQLPOINTER>(bound.Data), room, const_cast<SQLLEN*>(&bound.Length));
}

}  // namespace zanhost
