#include <boost/json/basic_parser_impl.hpp>
#include <string>

#include "host/gateway/ProtocolLines.h"

namespace zanhost {

namespace json = boost::json;

namespace {

using TFault = boost::system::error_code;

// Sees every token of a line and keeps a few scalars of its outermost object. A snapshot has thousands of
// tokens, so no tree is built of them.
struct TLineHeadHandler {
  static constexpr std::size_t max_object_size = static_cast<std::size_t>(-1);
  static constexpr std::size_t max_array_size = static_cast<std::size_t>(-1);
  static constexpr std::size_t max_key_size = static_cast<std::size_t>(-1);
  static constexpr std::size_t max_string_size = static_cast<std::size_t>(-1);

  bool on_document_begin(TFault&) { return true; }
  bool on_document_end(TFault&) { return true; }
  bool on_object_begin(TFault&) {
    IsObject = IsObject || Depth == 0;
    ++Depth;
    return true;
  }
  bool on_object_end(std::size_t, TFault&) {
    --Depth;
    return true;
  }
  bool on_array_begin(TFault&) {
    ++Depth;
    return true;
  }
  bool on_array_end(std::size_t, TFault&) {
    --Depth;
    return true;
  }
  bool on_key_part(std::string_view part, std::size_t, TFault&) { return Append(Key, part); }
  bool on_key(std::string_view part, std::size_t, TFault&) {
    Append(Key, part);
    if (Depth == 1) Member.swap(Key);
    Key.clear();
    return true;
  }
  bool on_string_part(std::string_view part, std::size_t, TFault&) { return Append(Text, part); }
  bool on_string(std::string_view part, std::size_t, TFault&) {
    Append(Text, part);
    if (Depth == 1 && Member == "failed") Head.Failed = Text;
    Text.clear();
    return true;
  }
  bool on_number_part(std::string_view, TFault&) { return true; }
  bool on_int64(std::int64_t number, std::string_view, TFault&) {
    if (Depth != 1) return true;
    if (Member == "seq") Head.Seq = number;
    if (Member == "ack") Head.Ack = number;
    if (Member == "n") Head.Event = number;
    return true;
  }
  bool on_uint64(std::uint64_t, std::string_view, TFault&) { return true; }
  bool on_double(double, std::string_view, TFault&) { return true; }
  bool on_bool(bool value, TFault&) {
    if (Depth != 1) return true;
    if (Member == "snapshot") Head.IsSnapshot = value;
    if (Member == "ready") Head.IsReady = value;
    return true;
  }
  bool on_null(TFault&) { return true; }
  bool on_comment_part(std::string_view, TFault&) { return true; }
  bool on_comment(std::string_view, TFault&) { return true; }

  // Below the outermost object neither names nor texts matter.
  bool Append(std::string& text, std::string_view part) const {
    if (Depth == 1) text.append(part);
    return true;
  }

  TLineHead Head;
  std::size_t Depth = 0;
  bool IsObject = false;
  std::string Key;
  std::string Text;
  std::string Member;
};

}  // namespace

std::optional<TLineHead> ReadLineHead(std::string_view line) {
  json::basic_parser<TLineHeadHandler> parser{json::parse_options()};
  TFault fault;
  const std::size_t used = parser.write_some(false, line.data(), line.size(), fault);
  if (fault || used != line.size() || !parser.handler().IsObject) return std::nullopt;
  return parser.handler().Head;
}

}  // namespace zanhost
