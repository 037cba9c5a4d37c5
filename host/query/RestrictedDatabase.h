#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

#include "host/query/Database.h"

namespace zanhost {

/// When a restricted session gives up. Far less than for the host's own statements: whoever writes a part of
/// a statement can make it as large as he likes.
inline constexpr std::chrono::seconds kRestrictedStatement{5};
inline constexpr std::size_t kRestrictedValues = 1'000'000;
inline constexpr std::size_t kRestrictedBytes = 64UL * 1024 * 1024;

/// Opens the databases of an installation for statements that hold a text of a caller as it stands. Whatever
/// that text makes of the statement, the session runs one select at a time, writes nothing, reads no column
/// that holds a password (SecretColumns.h), no file and no program, and ends within limits.
///
/// sqlite:FOLDER needs nothing more. mysql://… names an account of its own on the server, made by
/// `zanhost restricted-account`, since an account cannot take a right away from itself; what it may do is
/// asked of the server. Raises EDatabaseError, with a text for a person, for an account that may do more, for
/// odbc:…, where nothing ends a text behind its first statement, and as OpenDatabase does.
std::unique_ptr<TDatabase> OpenRestricted(const std::string& url);

}  // namespace zanhost
