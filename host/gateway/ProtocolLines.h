#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zanhost {

/// The members of a worker's line that the gateway looks at. Everything else it passes on unread.
struct TLineHead {
  std::optional<std::int64_t> Seq;
  std::optional<std::int64_t> Ack;
  /// Of an answer or an error: the event that it belongs to.
  std::optional<std::int64_t> Event;
  bool IsSnapshot = false;
  /// The worker's first line: it runs, or why it cannot.
  bool IsReady = false;
  std::optional<std::string> Failed;
};

/// Nothing when the line is no JSON object.
std::optional<TLineHead> ReadLineHead(std::string_view line);

/// An event of the client after the check. Either Refusal is set, or the event may be passed on.
struct TClientEvent {
  /// The message on one line.
  std::string Line;
  std::optional<std::int64_t> Number;
  /// The language when the event chooses one, otherwise empty.
  std::string Language;
  /// The line that answers a message that is no event.
  std::string Refusal;
};

/// Checks one message of a client: a JSON object with a text "do" and without a member "gateway", which marks
/// the gateway's own lines.
TClientEvent CheckClientEvent(std::string_view message);

/// `{"error":text}`, with the number of the event when it is known.
std::string ErrorLine(std::string_view text, std::optional<std::int64_t> event);
/// `{"bye":reason}`; `detail` joins as text for the person unless it is empty.
std::string ByeLine(std::string_view reason, std::string_view detail);

inline constexpr std::string_view kAttachLine = R"({"gateway":"attach"})";
inline constexpr std::string_view kDetachLine = R"({"gateway":"detach"})";
/// Tells a worker where the file landed that its open dialog asked for.
std::string UploadedLine(std::int64_t window, std::string_view path);

}  // namespace zanhost
