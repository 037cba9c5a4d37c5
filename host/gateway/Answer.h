#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zanhost {

/// An HTTP response before it is written.
struct TAnswer {
  unsigned Status = 200;
  /// Beside those that every response has.
  std::vector<std::pair<std::string, std::string>> Headers;
  /// Null for none.
  std::shared_ptr<const std::string> Body;
  /// Sent instead of Body unless it is empty.
  std::filesystem::path File;
};

TAnswer JsonAnswer(unsigned status, std::string body);
TAnswer EmptyAnswer(unsigned status);

/// A refusal as application/problem+json. `more` joins as further members: `"reset":true`.
TAnswer ProblemAnswer(unsigned status, std::string_view detail, std::string_view more = {});

/// The reason phrase of the statuses that this server gives.
std::string_view ReasonPhrase(unsigned status);

}  // namespace zanhost
