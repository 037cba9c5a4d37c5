#include "Party/PartyUnQuery.h"

#include <utility>

#include "Frame/Dialects.h"

namespace zanrole {

std::string FirstText(std::string statement, std::string_view column) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, std::move(statement));
  return query->Eof() ? std::string{} : Trim(query->FieldByName(column).AsString());
}

std::string JoinedValues(TZANQuery& query, std::string_view column) {
  std::string joined;
  bool first = true;
  for (query.First(); !query.Eof(); query.Next()) {
    if (!first) joined += ',';
    joined += Trim(query.FieldByName(column).AsString());
    first = false;
  }
  return joined;
}

std::string JoinedValues(std::string statement, std::string_view column) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, std::move(statement));
  return JoinedValues(*query, column);
}

std::string ValueLines(TZANQuery& query, std::string_view column) {
  std::string lines;
  for (query.First(); !query.Eof(); query.Next())
    lines.append(query.FieldByName(column).AsString()).append("\r\n");
  return lines;
}

std::string LinesAsList(std::string_view lines) { return StringReplace(lines, "\r\n", ","); }

}  // namespace zanrole
