#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/answers/Question.h"

namespace zanhost {

/// An address of the interface for services, taken apart.
struct TServiceRoute {
  /// Nothing for the document that describes the interface.
  std::optional<TQuestionKind> Kind;
  /// Of the function, the user or the object; empty where the address names none. Decoded.
  std::string Name;
};

/// Does a path belong to the interface for services?
bool IsServicePath(std::string_view path);

/// The route of a path with this method. A function's address is a call for POST. Nothing when there is no
/// such address, or when its name cannot be decoded to a text.
std::optional<TServiceRoute> ServiceRouteOf(std::string_view method, std::string_view path);

}  // namespace zanhost
