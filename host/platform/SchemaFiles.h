#pragma once

#include <span>
#include <string_view>

namespace zanhost {

/// One numbered file of schema/, as it stood at build time.
struct TSchemaFile {
  std::string_view Name;
  std::string_view Text;
};

// The schema of the embedded database, and of MySQL's dialect, in the order in which it runs. They live as
// long as the program.
std::span<const TSchemaFile> SqliteSchemaFiles();
std::span<const TSchemaFile> MySqlSchemaFiles();

}  // namespace zanhost
