#pragma once

#include <string_view>

namespace zanhost {

/// True for a column that a restricted session does not read: its name tells of a password, whatever the
/// table, or it holds what plug-ins keep, which may be a password of theirs. Names compare without regard to
/// case.
bool IsSecretColumn(std::string_view table, std::string_view column);

}  // namespace zanhost
