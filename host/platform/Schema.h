#pragma once

#include "host/query/Database.h"

namespace zanhost {

/// Version of the schema that this program installs. Grows with each change of schema/.
inline constexpr int kSchemaVersion = 2;

/// Brings the database to kSchemaVersion and gives that version: makes what is missing, never touches a row
/// that is there, and changes nothing when the database is up to date; stored routines are made anew each
/// time. Two processes may do it at once. All of it or nothing on the embedded database; a server keeps what
/// was made before a failure, and running it again goes on from there. Raises EZanError for a database of a
/// later version than this program knows, and EDatabaseError for a failed statement.
int InstallSchema(TDatabase& database);

/// Version that the database tells of itself; 0 when no schema was installed.
int InstalledSchemaVersion(TDatabase& database);

}  // namespace zanhost
