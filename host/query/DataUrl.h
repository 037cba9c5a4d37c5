#pragma once

#include <memory>
#include <string>

#include "host/query/Database.h"

namespace zanhost {

enum class TOpenMode { MustExist, CreateIfMissing };

/// Opens the databases that a URL names, as one session sees them:
///   sqlite:FOLDER    the embedded database FOLDER/zanrole.db; CreateIfMissing makes folder and (empty) file
/// Raises EDatabaseError, with a text for a person, for an unknown form and for a database that cannot be
/// opened.
std::unique_ptr<TDatabase> OpenDatabase(const std::string& url, TOpenMode mode);

}  // namespace zanhost
