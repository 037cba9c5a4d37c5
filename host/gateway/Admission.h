#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "host/gateway/Answer.h"

namespace zanhost {

/// What is to be done with a request whose head was read.
struct TAdmission {
  /// Answers at once; the body is not read.
  std::optional<TAnswer> Refusal;
  /// The longest body that is read.
  std::uint64_t BodyLimit = 0;
  /// Takes the body as it comes; empty keeps it in memory.
  std::filesystem::path BodyFile;
};

/// The request's method is none of `allowed`: "GET, HEAD".
TAnswer WrongMethod(std::string_view allowed);

}  // namespace zanhost
