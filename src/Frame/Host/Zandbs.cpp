#include "Frame/Host/Zandbs.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace zanrole {

namespace {

template <typename... Visitors>
struct TOverload : Visitors... {
  using Visitors::operator()...;
};
template <typename... Visitors>
TOverload(Visitors...) -> TOverload<Visitors...>;

std::string DoubleToText(double number) {
  char text[32];
  const auto [end, error] = std::to_chars(text, text + sizeof text, number);
  return {text, end};
}

[[noreturn]] void RaiseNoInteger(const std::string& text) {
  throw EConvertError("'" + text + "' is not a valid integer");
}

int NarrowToInteger(std::int64_t value) {
  if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
    RaiseNoInteger(std::to_string(value));
  return static_cast<int>(value);
}

/// The fraction is cut off.
int NarrowToInteger(double value) {
  const double whole = std::trunc(value);
  const bool fits = whole >= std::numeric_limits<int>::min() && whole <= std::numeric_limits<int>::max();
  if (!fits) RaiseNoInteger(DoubleToText(value));
  return static_cast<int>(whole);
}

const TZanValue kNull;

}  // namespace

std::string ValueAsString(const TZanValue& value) {
  return std::visit(
      TOverload{[](std::monostate) { return std::string(); },
                [](std::int64_t number) { return std::to_string(number); },
                [](double number) { return DoubleToText(number); },
                [](bool truth) { return BoolToStr(truth); }, [](const std::string& text) { return text; },
                [](TDateTime time) { return DateTimeToText(time); }},
      value);
}

int ValueAsInteger(const TZanValue& value) {
  return std::visit(
      TOverload{[](std::monostate) { return 0; }, [](std::int64_t number) { return NarrowToInteger(number); },
                [](double number) { return NarrowToInteger(number); },
                [](bool truth) { return truth ? 1 : 0; },
                [](const std::string& text) { return text.empty() ? 0 : StrToInt(text); },
                [](TDateTime time) -> int { RaiseNoInteger(DateTimeToText(time)); }},
      value);
}

bool ValueAsBoolean(const TZanValue& value) {
  return std::visit(
      TOverload{[](std::monostate) { return false; }, [](std::int64_t number) { return number != 0; },
                [](double number) { return number != 0; }, [](bool truth) { return truth; },
                [](const std::string& text) { return !text.empty() && StrToBool(text); },
                [](TDateTime) { return true; }},
      value);
}

TDateTime ValueAsDateTime(const TZanValue& value) {
  if (const auto* time = std::get_if<TDateTime>(&value)) return *time;
  if (std::holds_alternative<std::monostate>(value)) return {};
  return TextToDateTime(ValueAsString(value));
}

EDatabaseError::EDatabaseError(std::string message, std::string statement)
    : EZanError(statement.empty() ? message : message + "\n" + statement),
      FMessage(std::move(message)),
      FStatement(std::move(statement)) {}

const TZanValue& TField::Value() const {
  return FOwner->Eof() ? kNull : FOwner->FCells[FOwner->Cell(FOwner->FRow, FIndex)];
}

void TField::SetValue(TZanValue value) {
  if (!FOwner->Eof()) FOwner->FCells[FOwner->Cell(FOwner->FRow, FIndex)] = std::move(value);
}

TDataSet::TDataSet(std::initializer_list<std::string_view> columns) {
  Load({columns.begin(), columns.end()}, {});
}

void TDataSet::Close() {
  FFields.clear();
  FCells.clear();
  FRow = 0;
  FActive = false;
}

void TDataSet::Load(const std::vector<std::string>& columns, std::vector<TZanValue> cells) {
  Close();
  FFields.reserve(columns.size());
  for (const std::string& column : columns)
    FFields.emplace_back(*this, static_cast<int>(FFields.size()), column);
  FCells = std::move(cells);
  FActive = true;
}

TField& TDataSet::FieldByName(std::string_view name) {
  if (TField* field = FindField(name)) return *field;
  throw EDatabaseError("Field '" + std::string(name) + "' not found", {});
}

TField* TDataSet::FindField(std::string_view name) {
  const int index = FieldIndex(name);
  return index < 0 ? nullptr : &Field(index);
}

int TDataSet::FieldIndex(std::string_view name) const {
  for (std::size_t i = 0; i < FFields.size(); ++i) {
    if (SameText(FFields[i].Name(), name)) return static_cast<int>(i);
  }
  return -1;
}

std::size_t TDataSet::Cell(int row, int field) const {
  return static_cast<std::size_t>(row) * FFields.size() + static_cast<std::size_t>(field);
}

const TZanValue& TDataSet::At(int row, int field) const { return FCells[Cell(row, field)]; }

bool TDataSet::Locate(std::string_view fields, const std::vector<TZanValue>& values) {
  std::vector<int> columns;
  for (std::size_t at = 0; at <= fields.size();) {
    const std::size_t end = std::min(fields.find(';', at), fields.size());
    columns.push_back(FieldByName(fields.substr(at, end - at)).FIndex);
    at = end + 1;
  }
  const auto matches = [&](int row) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const TZanValue& cell = At(row, columns[i]);
      if (cell.index() == values[i].index() ? cell != values[i]
                                            : ValueAsString(cell) != ValueAsString(values[i]))
        return false;
    }
    return true;
  };
  for (int row = 0; row < RowCount(); ++row) {
    if (matches(row)) {
      FRow = row;
      return true;
    }
  }
  return false;
}

void TDataSet::Append() {
  const int row = RowCount();
  FCells.resize(FCells.size() + FFields.size());
  FRow = row;
}

void TDataSet::Delete() {
  if (Eof()) return;
  const auto first = FCells.begin() + static_cast<std::ptrdiff_t>(Cell(FRow, 0));
  FCells.erase(first, first + static_cast<std::ptrdiff_t>(FFields.size()));
}

void TDataSet::EmptyTable() {
  FCells.clear();
  FRow = 0;
}

TParam* TParams::Find(std::string_view name) {
  for (TParam& param : FItems) {
    if (SameText(param.Name(), name)) return &param;
  }
  return nullptr;
}

namespace {

bool IsNameChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

/// Position behind a quoted text, a bracketed name or a comment that begins at `at`; `at` itself when none
/// begins there.
std::size_t SkipOpaque(std::string_view text, std::size_t at) {
  const auto behind = [&](std::string_view end, std::size_t from) {
    const std::size_t found = text.find(end, from);
    return found == std::string_view::npos ? text.size() : found + end.size();
  };
  const char c = text[at];
  if (c == '\'' || c == '"' || c == '`') return behind(std::string_view(&c, 1), at + 1);
  if (c == '[') return behind("]", at + 1);
  if (text.substr(at, 2) == "--") return behind("\n", at + 2);
  if (text.substr(at, 2) == "/*") return behind("*/", at + 2);
  return at;
}

}  // namespace

void TParams::Refill(std::string_view statement) {
  std::vector<TParam> old = std::move(FItems);
  FItems.clear();
  const auto take = [&](std::string_view name) {
    if (Find(name) != nullptr) return;
    for (TParam& param : old) {
      if (SameText(param.Name(), name)) {
        FItems.push_back(std::move(param));
        return;
      }
    }
    FItems.emplace_back(std::string(name));
  };
  for (std::size_t at = 0; at < statement.size();) {
    const std::size_t behind = SkipOpaque(statement, at);
    if (behind != at) {
      at = behind;
    } else if (statement[at] == ':' && at + 1 < statement.size() && IsNameChar(statement[at + 1])) {
      std::size_t end = at + 1;
      while (end < statement.size() && IsNameChar(statement[end])) ++end;
      take(statement.substr(at + 1, end - at - 1));
      at = end;
    } else {
      ++at;
    }
  }
}

TParams& TZANQuery::Params() {
  if (FParamsRevision != FSQL.Revision()) {
    FParams.Refill(FSQL.Text());
    FParamsRevision = FSQL.Revision();
  }
  return FParams;
}

TParam& TZANQuery::ParamByName(std::string_view name) {
  if (TParam* param = Params().Find(name)) return *param;
  throw EDatabaseError("Parameter '" + std::string(name) + "' not found", FSQL.Text());
}

}  // namespace zanrole
