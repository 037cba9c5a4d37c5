#pragma once

#include <string_view>

namespace zanhost {

/// True for a system function that puts a text of its caller into a statement as it stands, without quotes or
/// with the quotes in the text left single: whoever chooses the text writes a part of the statement. Such a
/// function is called on a restricted database only (host/query/RestrictedDatabase.h). Names compare exactly,
/// as functions are found by them.
bool PastesText(std::string_view functionName);

}  // namespace zanhost
