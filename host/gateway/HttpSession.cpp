#include "host/gateway/HttpSession.h"

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/file_body.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/span_body.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/http/write.hpp>
#include <boost/beast/websocket/rfc6455.hpp>
#include <cctype>
#include <exception>
#include <iostream>
#include <utility>

#include "host/gateway/Headers.h"
#include "host/gateway/Network.h"
#include "host/gateway/SessionFiles.h"
#include "host/gateway/WebSocketSession.h"

namespace zanhost {

namespace http = beast::http;

namespace {

using THeadParser = http::request_parser<http::empty_body>;
using TFault = boost::system::error_code;

constexpr std::uint32_t kLongestHead = 16 * 1024;
constexpr std::chrono::seconds kHandshakeTime{10};
constexpr std::chrono::seconds kHeadTime{60};
constexpr std::chrono::seconds kBodyTime{30};
constexpr std::chrono::minutes kFileTime{10};
constexpr std::chrono::minutes kAnswerTime{2};
// What is still read after the last answer, so that it is not lost with what the other side was sending.
constexpr std::chrono::seconds kLingerTime{2};
constexpr std::size_t kLingerPiece = 64UL * 1024;

std::string SmallLetters(std::string_view text) {
  std::string small(text);
  for (char& c : small) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return small;
}

std::string_view View(beast::string_view text) { return {text.data(), text.size()}; }

bool IsLoopback(const std::string& address) {
  TFault fault;
  return asio::ip::make_address(address, fault).is_loopback() && !fault;
}

// What of a request its response depends on.
struct TReplyTo {
  unsigned Version;
  bool KeepAlive;
  bool IsHead;
};

TReplyTo ReplyTo(const THeadParser& head) {
  return {head.get().version(), head.get().keep_alive(), head.get().method() == http::verb::head};
}

TAnswer DescribeBrokenBody(const TAdmission& admission, TFault fault) {
  if (fault == http::error::body_limit) return ProblemAnswer(413, "The body of the request is too large.");
  const bool isHttp = fault.category() == TFault(http::error::bad_chunk).category();
  if (isHttp || admission.BodyFile.empty()) return ProblemAnswer(400, "The body of the request is broken.");
  return ProblemAnswer(503, "The file cannot be stored: " + fault.message());
}

// One connection and what is told of each of its requests.
class THttpSession {
 public:
  THttpSession(TStream stream, std::string address, const TConnectionRules& rules, TApi& api)
      : FStream(std::move(stream)), FAddress(std::move(address)), FRules(rules), FApi(api) {}

  TTask<> Run();

 private:
  // Each gives whether the connection goes on.
  TTask<bool> ServeRequest();
  TTask<bool> ServeHead(THeadParser& head);
  TTask<bool> ServeBody(THeadParser& head, TRequest request, TAdmission admission);
  TTask<bool> ServeWebSocket(THeadParser& head, TRequest request);
  TTask<bool> RefuseHead(const THeadParser& head, TFault fault);
  // Answers a request whose body is not read, so the connection ends when there may be one.
  TTask<bool> Refuse(const THeadParser& head, TAnswer answer);
  TTask<bool> Write(const TReplyTo& to, TAnswer answer);
  template <typename TBody>
  TTask<bool> WriteMessage(http::response<TBody> response, const TReplyTo& to, const TAnswer& answer);

  TTask<TFault> ReadBody(THeadParser& head, TRequest& request, const TAdmission& admission);
  TTask<TAnswer> AnswerFrom(TRequest request, std::filesystem::path bodyFile);
  TRequest RequestOf(const THeadParser& head) const;
  bool IsPlainFromAfar() const;
  std::optional<TAnswer> RefuseConnection(const THeadParser& head, const TRequest& request) const;
  TTask<> Linger();

  TStream FStream;
  std::string FAddress;
  const TConnectionRules& FRules;
  TApi& FApi;
  beast::flat_buffer FBuffer;
  // The stream went to a WebSocket.
  bool FHandedOver = false;
};

TTask<> THttpSession::Run() {
  // Held here, so that a renewal does not take it from a handshake that runs.
  if (const std::shared_ptr<asio::ssl::context> tls = FRules.Tls) {
    FStream.next_layer().expires_after(kHandshakeTime);
    if (co_await FStream.Handshake(*tls)) co_return;
  }
  while (co_await ServeRequest()) {
  }
  if (FHandedOver) co_return;
  FStream.next_layer().expires_after(kHandshakeTime);
  co_await FStream.Finish();
  co_await Linger();
}

// A connection that is closed while something arrives is reset, and the other side may lose our answer with
// it.
TTask<> THttpSession::Linger() {
  const auto end = std::chrono::steady_clock::now() + kLingerTime;
  std::string piece(kLingerPiece, '\0');
  for (TFault gone; !gone;) {
    FStream.next_layer().expires_at(end);
    const auto [fault, size] = co_await FStream.next_layer().async_read_some(asio::buffer(piece), kWithError);
    gone = fault;
  }
}

// Plain text may only come from this machine or from the proxy that is named.
bool THttpSession::IsPlainFromAfar() const {
  return !FStream.IsTls() && FAddress != FRules.ProxyAddress && !IsLoopback(FAddress);
}

TRequest THttpSession::RequestOf(const THeadParser& head) const {
  TRequest request;
  request.Method = View(head.get().method_string());
  request.Address = FAddress;
  request.IsSecure = FStream.IsTls();
  ReadTarget(request, View(head.get().target()));
  for (const auto& field : head.get()) {
    const auto [entry, isNew] =
        request.Headers.emplace(SmallLetters(View(field.name_string())), View(field.value()));
    if (!isNew) entry->second.append(", ").append(View(field.value()));
  }
  if (!FRules.ProxyAddress.empty() && FAddress == FRules.ProxyAddress) BelieveProxy(request);
  return request;
}

// What is wrong whatever is asked for. The connection does not go on after it.
std::optional<TAnswer> THttpSession::RefuseConnection(const THeadParser& head,
                                                      const TRequest& request) const {
  if (IsPlainFromAfar()) return ProblemAnswer(403, "Use HTTPS, or come through the proxy.");
  // Another coding would leave it open where the body ends, so a part of it could pass for a request.
  const std::string_view coding = request.Header("transfer-encoding");
  if (!coding.empty() && SmallLetters(coding) != "chunked")
    return ProblemAnswer(501, "A body comes as it stands or chunked.");
  // A foreign name that leads to this machine lets the pages of that name speak with us as their own server.
  const bool isOwn = !FStream.IsTls() && FAddress != FRules.ProxyAddress;
  if (isOwn && head.get().count(http::field::host) > 0 && !NamesThisMachine(request.Header("host")))
    return ProblemAnswer(421, "This server is not known by this name. Use localhost or its address.");
  return std::nullopt;
}

TTask<bool> THttpSession::ServeRequest() {
  THeadParser head;
  head.header_limit(kLongestHead);
  // Which limit holds is known with the head.
  head.body_limit(boost::none);
  FStream.next_layer().expires_after(kHeadTime);
  const auto [fault, size] = co_await http::async_read_header(FStream, FBuffer, head, kWithError);
  if (fault) co_return co_await RefuseHead(head, fault);
  co_return co_await ServeHead(head);
}

TTask<bool> THttpSession::RefuseHead(const THeadParser& head, TFault fault) {
  const bool isRequest = fault.category() == TFault(http::error::bad_method).category() &&
                         fault != http::error::end_of_stream && fault != http::error::partial_message;
  if (!isRequest) co_return false;
  const TAnswer answer = fault == http::error::header_limit
                             ? ProblemAnswer(431, "The head of the request is too large.")
                             : ProblemAnswer(400, "This is no HTTP request.");
  co_await Refuse(head, answer);
  co_return false;
}

TTask<bool> THttpSession::ServeHead(THeadParser& head) {
  TRequest request = RequestOf(head);
  if (std::optional<TAnswer> refusal = RefuseConnection(head, request)) {
    co_await Refuse(head, std::move(*refusal));
    co_return false;
  }
  if (beast::websocket::is_upgrade(head.get())) co_return co_await ServeWebSocket(head, std::move(request));
  TAdmission admission = FApi.Admit(request);
  if (admission.Refusal) co_return co_await Refuse(head, std::move(*admission.Refusal));
  if (head.content_length().value_or(0) > admission.BodyLimit)
    co_return co_await Refuse(head, ProblemAnswer(413, "The body of the request is too large."));
  co_return co_await ServeBody(head, std::move(request), std::move(admission));
}

TTask<bool> THttpSession::ServeBody(THeadParser& head, TRequest request, TAdmission admission) {
  TReplyTo to = ReplyTo(head);
  const TFault fault = co_await ReadBody(head, request, admission);
  if (fault && !admission.BodyFile.empty()) DropUpload(admission.BodyFile);
  if (fault) {
    to.KeepAlive = false;
    co_return co_await Write(to, DescribeBrokenBody(admission, fault));
  }
  TAnswer answer = co_await AnswerFrom(std::move(request), std::move(admission.BodyFile));
  co_return co_await Write(to, std::move(answer));
}

TTask<TFault> THttpSession::ReadBody(THeadParser& head, TRequest& request, const TAdmission& admission) {
  if (admission.BodyFile.empty()) {
    http::request_parser<http::string_body> body(std::move(head));
    body.body_limit(admission.BodyLimit);
    FStream.next_layer().expires_after(kBodyTime);
    const auto [fault, size] = co_await http::async_read(FStream, FBuffer, body, kWithError);
    request.Body = std::move(body.get().body());
    co_return fault;
  }
  http::request_parser<http::file_body> body(std::move(head));
  body.body_limit(admission.BodyLimit);
  TFault unwritable;
  body.get().body().open(admission.BodyFile.c_str(), beast::file_mode::write, unwritable);
  if (unwritable) co_return unwritable;
  FStream.next_layer().expires_after(kFileTime);
  const auto [fault, size] = co_await http::async_read(FStream, FBuffer, body, kWithError);
  co_return fault;
}

TTask<TAnswer> THttpSession::AnswerFrom(TRequest request, std::filesystem::path bodyFile) {
  try {
    co_return co_await FApi.Answer(std::move(request), std::move(bodyFile));
  } catch (const std::exception& fault) {
    std::cerr << "zanhost: " << OutcomeOf(fault) << '\n';
    co_return ProblemAnswer(503, "The server cannot answer this now. Its log says why.");
  }
}

TTask<bool> THttpSession::ServeWebSocket(THeadParser& head, TRequest request) {
  TAnswer refusal;
  std::shared_ptr<TLoginSession> session = FApi.AdmitWebSocket(request, refusal);
  if (!session) co_return co_await Refuse(head, std::move(refusal));
  FHandedOver = true;
  co_await RunWebSocket(std::move(FStream), head.release(), std::move(session));
  co_return false;
}

TTask<bool> THttpSession::Refuse(const THeadParser& head, TAnswer answer) {
  TReplyTo to = ReplyTo(head);
  to.KeepAlive = to.KeepAlive && head.is_done();
  co_return co_await Write(to, std::move(answer));
}

TTask<bool> THttpSession::Write(const TReplyTo& to, TAnswer answer) {
  const auto status = static_cast<http::status>(answer.Status);
  if (!answer.File.empty() && !to.IsHead) {
    http::response<http::file_body> response(status, to.Version);
    TFault missing;
    response.body().open(answer.File.c_str(), beast::file_mode::scan, missing);
    if (missing) co_return co_await Write(to, ProblemAnswer(404, "The file is gone."));
    response.prepare_payload();
    co_return co_await WriteMessage(std::move(response), to, answer);
  }
  if (answer.Body && !to.IsHead) {
    http::response<http::span_body<const char>> response(status, to.Version);
    response.body() = {answer.Body->data(), answer.Body->size()};
    response.prepare_payload();
    co_return co_await WriteMessage(std::move(response), to, answer);
  }
  http::response<http::empty_body> response(status, to.Version);
  response.prepare_payload();
  if (answer.Body) response.content_length(answer.Body->size());
  co_return co_await WriteMessage(std::move(response), to, answer);
}

template <typename TBody>
TTask<bool> THttpSession::WriteMessage(http::response<TBody> response, const TReplyTo& to,
                                       const TAnswer& answer) {
  for (const auto& [name, value] : kSecurityHeaders) response.set(name, value);
  for (const auto& [name, value] : answer.Headers) response.set(name, value);
  response.keep_alive(to.KeepAlive);
  FStream.next_layer().expires_after(answer.File.empty() ? kAnswerTime : kFileTime);
  const auto [fault, size] = co_await http::async_write(FStream, response, kWithError);
  co_return !fault && to.KeepAlive;
}

}  // namespace

TTask<> RunHttpSession(TStream stream, std::string address, const TConnectionRules& rules, TApi& api) {
  THttpSession session(std::move(stream), std::move(address), rules, api);
  co_await session.Run();
}

}  // namespace zanhost
