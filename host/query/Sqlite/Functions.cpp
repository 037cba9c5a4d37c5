#include "host/query/Sqlite/Functions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <string>
#include <string_view>

namespace zanhost {

namespace {

constexpr int kDefaultWidth = 10;
constexpr int kGreatestWidth = 8000;

void GiveText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

bool IsNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

void GetDate(sqlite3_context* context, int, sqlite3_value**) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  const std::size_t size = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
  GiveText(context, {text.data(), size});
}

void Str(sqlite3_context* context, int count, sqlite3_value** values) {
  if (IsNull(values[0])) return sqlite3_result_null(context);
  const int wanted = count > 1 ? sqlite3_value_int(values[1]) : kDefaultWidth;
  const auto width = static_cast<std::size_t>(std::clamp(wanted, 0, kGreatestWidth));
  const std::string digits = sqlite3_value_type(values[0]) == SQLITE_INTEGER
                                 ? std::to_string(sqlite3_value_int64(values[0]))
                                 : std::to_string(std::llround(sqlite3_value_double(values[0])));
  const std::string text =
      digits.size() > width ? std::string(width, '*') : std::string(width - digits.size(), ' ') + digits;
  GiveText(context, text);
}

void DbName(sqlite3_context* context, int, sqlite3_value**) { GiveText(context, "main"); }

bool ContinuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

void LeftCharacters(sqlite3_context* context, int, sqlite3_value** values) {
  if (IsNull(values[0]) || IsNull(values[1])) return sqlite3_result_null(context);
  const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
  const std::string_view text(data, static_cast<std::size_t>(sqlite3_value_bytes(values[0])));
  sqlite3_int64 left = std::max<sqlite3_int64>(sqlite3_value_int64(values[1]), 0);
  std::size_t end = 0;
  while (end < text.size() && left > 0) {
    ++end;
    while (end < text.size() && ContinuesCharacter(text[end])) ++end;
    --left;
  }
  GiveText(context, text.substr(0, end));
}

struct TFunction {
  const char* Name;
  int Arguments;
  int Flags;
  void (*Call)(sqlite3_context*, int, sqlite3_value**);
};

constexpr std::array kFunctions{
    TFunction{"getdate", 0, SQLITE_UTF8, GetDate},
    TFunction{"str", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, Str},
    TFunction{"str", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, Str},
    TFunction{"DB_NAME", 0, SQLITE_UTF8 | SQLITE_DETERMINISTIC, DbName},
    TFunction{"left_characters", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, LeftCharacters},
};

}  // namespace

int RegisterFunctions(sqlite3* connection) {
  for (const TFunction& function : kFunctions) {
    const int code = sqlite3_create_function_v2(connection, function.Name, function.Arguments, function.Flags,
                                                nullptr, function.Call, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) return code;
  }
  return SQLITE_OK;
}

}  // namespace zanhost
