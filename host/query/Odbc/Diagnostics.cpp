#include "host/query/Odbc/Diagnostics.h"

#include <algorithm>

#include "host/query/Odbc/WideText.h"

namespace zanhost {

namespace {

/// "[driver][server]text" without what stands in brackets.
std::string WithoutOrigin(std::string text) {
  while (text.starts_with('[')) {
    const std::size_t end = text.find(']');
    if (end == std::string::npos) break;
    text.erase(0, end + 1);
  }
  return text;
}

}  // namespace

TOdbcError ErrorOf(SQLSMALLINT kind, SQLHANDLE handle) {
  std::u16string state(SQL_SQLSTATE_SIZE + 1, u'\0');
  std::u16string text(SQL_MAX_MESSAGE_LENGTH * 4, u'\0');
  SQLINTEGER number = 0;
  SQLSMALLINT length = 0;
  const SQLRETURN read = SQLGetDiagRecW(kind, handle, 1, WideArgument(state), &number, WideArgument(text),
                                        static_cast<SQLSMALLINT>(text.size()), &length);
  if (!SQL_SUCCEEDED(read)) return {"HY000", 0, "The driver gives no reason.", false};
  state.resize(SQL_SQLSTATE_SIZE);
  text.resize(std::min(text.find(u'\0'), text.size()));
  return {FromWide(state), number, WithoutOrigin(FromWide(text)), false};
}

}  // namespace zanhost
