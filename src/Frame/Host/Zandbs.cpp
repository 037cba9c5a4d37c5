#include "Frame/Host/Zandbs.h"

#include <array>

namespace zanrole {

EDatabaseError::EDatabaseError(std::string message, std::string statement)
    : EZanError(statement.empty() ? message : message + "\n" + statement),
      FMessage(std::move(message)),
      FStatement(std::move(statement)) {}

void TField::SetValue(const TZanValue& value) {
  if (!FOwner->Eof()) FOwner->FCells.Set(Cell(), value);
}

TDataSet::TDataSet(std::initializer_list<std::string_view> columns) {
  Load({columns.begin(), columns.end()}, {});
}

void TDataSet::Close() {
  FFields.clear();
  EmptyTable();
  FActive = false;
}

void TDataSet::Load(const std::vector<std::string>& columns, TZanCells cells) {
  Close();
  FFields.reserve(columns.size());
  for (const std::string& column : columns)
    FFields.emplace_back(*this, static_cast<int>(FFields.size()), column);
  FCells = std::move(cells);
  FRowCount = columns.empty() ? 0 : static_cast<int>(FCells.Size() / columns.size());
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

TZanValue TDataSet::At(int row, int field) const { return FCells.At(Cell(row, field)); }

bool TDataSet::Locate(std::string_view fields, const std::vector<TZanValue>& values) {
  std::vector<int> columns;
  for (std::size_t at = 0; at <= fields.size();) {
    const std::size_t end = std::min(fields.find(';', at), fields.size());
    columns.push_back(FieldByName(fields.substr(at, end - at)).FIndex);
    at = end + 1;
  }
  const auto matches = [&](int row) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const TZanValue cell = At(row, columns[i]);
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
  for (std::size_t i = 0; i < FFields.size(); ++i) FCells.AddNull();
  FRow = FRowCount++;
}

void TDataSet::Delete() {
  if (Eof()) return;
  FCells.Erase(Cell(FRow, 0), FFields.size());
  --FRowCount;
}

void TDataSet::EmptyTable() {
  FCells = {};
  FRowCount = 0;
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

/// The signs that may begin something else than plain text: quotes, brackets, comments and parameters.
constexpr auto kSigns = [] {
  std::array<bool, 256> signs{};
  for (const char sign : std::string_view("'\"`[-/:")) signs[static_cast<unsigned char>(sign)] = true;
  return signs;
}();

std::size_t FindSign(std::string_view text, std::size_t at) {
  while (at < text.size() && !kSigns[static_cast<unsigned char>(text[at])]) ++at;
  return at;
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
  for (std::size_t at = FindSign(statement, 0); at < statement.size(); at = FindSign(statement, at)) {
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
