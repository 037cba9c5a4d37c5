#include "host/gateway/ServiceRoute.h"

#include <algorithm>
#include <array>

#include "host/gateway/Request.h"
#include "host/platform/Utf8.h"

namespace zanhost {

namespace {

constexpr std::string_view kDocument = "/api/openapi.json";
constexpr std::string_view kFunctions = "/api/functions";

/// Addresses with a name between two fixed texts.
struct TPattern {
  std::string_view Before;
  std::string_view Behind;
  TQuestionKind Kind;
};

constexpr std::array kPatterns{TPattern{"/api/functions/", "", TQuestionKind::Function},
                               TPattern{"/api/users/", "/menus", TQuestionKind::Menus},
                               TPattern{"/api/users/", "/denied", TQuestionKind::Denied},
                               TPattern{"/api/users/", "/rights", TQuestionKind::Right},
                               TPattern{"/api/objects/", "/holders", TQuestionKind::Holders}};

/// The name in a path of this pattern, still encoded; nothing when the path is not of it.
std::optional<std::string_view> NameIn(std::string_view path, const TPattern& pattern) {
  const std::size_t fixed = pattern.Before.size() + pattern.Behind.size();
  const bool fits = path.size() > fixed && path.starts_with(pattern.Before) && path.ends_with(pattern.Behind);
  if (!fits) return std::nullopt;
  const std::string_view name = path.substr(pattern.Before.size(), path.size() - fixed);
  return name.find('/') == std::string_view::npos ? std::optional(name) : std::nullopt;
}

}  // namespace

bool IsServicePath(std::string_view path) {
  return path == kDocument || path == kFunctions ||
         std::any_of(kPatterns.begin(), kPatterns.end(),
                     [path](const TPattern& pattern) { return path.starts_with(pattern.Before); });
}

std::optional<TServiceRoute> ServiceRouteOf(std::string_view method, std::string_view path) {
  if (path == kDocument) return TServiceRoute{};
  if (path == kFunctions) return TServiceRoute{TQuestionKind::Functions, {}};
  for (const TPattern& pattern : kPatterns) {
    const auto encoded = NameIn(path, pattern);
    if (!encoded) continue;
    const auto name = PercentDecoded(*encoded);
    if (!name || !IsPlainText(*name)) return std::nullopt;
    const bool isCall = pattern.Kind == TQuestionKind::Function && method == "POST";
    return TServiceRoute{isCall ? TQuestionKind::Call : pattern.Kind, *name};
  }
  return std::nullopt;
}

}  // namespace zanhost
