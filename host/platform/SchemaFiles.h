#pragma once

#include <span>
#include <string_view>

namespace zanhost {

/// One numbered file of schema/, as it stood at build time.
struct TSchemaFile {
  std::string_view Name;
  std::string_view Text;
};

// The schemas of the embedded database and of the dialects, each in the order in which it runs. They live as
// long as the program.
std::span<const TSchemaFile> SqliteSchemaFiles();
std::span<const TSchemaFile> MySqlSchemaFiles();
std::span<const TSchemaFile> SqlServerSchemaFiles();
std::span<const TSchemaFile> OracleSchemaFiles();
/// What MariaDB in its Oracle mode runs in place of the files of the same name for Oracle.
std::span<const TSchemaFile> MariaDbOracleSchemaFiles();

}  // namespace zanhost
