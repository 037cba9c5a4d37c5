#include "host/gateway/Api.h"

#include <boost/json/object.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>
#include <charconv>
#include <exception>
#include <utility>

#include "host/gateway/Headers.h"
#include "host/gateway/SessionFiles.h"

namespace zanhost {

namespace json = boost::json;

namespace {

constexpr std::uint64_t kLongestForm = 16UL * 1024;
constexpr std::string_view kFilesPath = "/api/files/";

std::string TextMember(const json::object& object, std::string_view name) {
  const json::value* value = object.if_contains(name);
  return value != nullptr && value->is_string() ? std::string(value->get_string()) : std::string();
}

std::optional<TLoginTry> ReadLoginTry(const TRequest& request) {
  boost::system::error_code fault;
  const json::value body = json::parse(request.Body, fault);
  if (fault || !body.is_object()) return std::nullopt;
  const json::object& object = body.get_object();
  TLoginTry given{TextMember(object, "login"), TextMember(object, "password"),
                  TextMember(object, "newPassword"), TextMember(object, "language"), request.Address};
  if (given.Language != "en") given.Language = "zh";
  return given;
}

TAnswer Refuse(const TLoginAnswer& answer) {
  switch (answer.Result) {
    case TLoginResult::Disabled:
      return ProblemAnswer(401, "This account is disabled.", R"("reason":"disabled")");
    case TLoginResult::NeedReset:
      return ProblemAnswer(403, "A new password has to be chosen first.", R"("reset":true)");
    case TLoginResult::PasswordRefused:
      return ProblemAnswer(422, answer.Detail, R"("reset":true)");
    case TLoginResult::Busy:
      return ProblemAnswer(503, "Too many people are logging in. Try again in a moment.");
    case TLoginResult::Slowed: {
      const std::string seconds = std::to_string(answer.RetryAfter.count());
      TAnswer refusal = ProblemAnswer(429, "Too many failed tries. Try again in " + seconds + " s.",
                                      "\"retryAfter\":" + seconds);
      refusal.Headers.emplace_back("Retry-After", seconds);
      return refusal;
    }
    default:
      return ProblemAnswer(401, "Login or password is wrong.", R"("reason":"wrong")");
  }
}

TAnswer SessionAnswer(const TOperator& who) {
  return JsonAnswer(200, json::serialize(json::object{
                             {"login", who.Login}, {"name", who.Name}, {"language", who.Language}}));
}

TAnswer NotLoggedIn() { return ProblemAnswer(401, "Log in first."); }

TAnswer ForeignOrigin() {
  return ProblemAnswer(403, "The request does not come from a page of this server.");
}

bool IsPostPath(std::string_view path) {
  return path == "/api/login" || path == "/api/logout" || path == "/api/upload";
}

std::optional<std::int64_t> WindowOf(const TRequest& request) {
  const std::string_view text = request.QueryValue("window");
  std::int64_t window = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), window);
  const bool isNumber = fault == std::errc() && end == text.data() + text.size();
  return isNumber ? std::optional(window) : std::nullopt;
}

}  // namespace

std::shared_ptr<TLoginSession> TApi::SessionOf(const TRequest& request) const {
  return FSessions.Find(CookieOf(request, SessionCookieName(request.IsSecure)));
}

TAdmission TApi::Admit(const TRequest& request) {
  if (TServiceApi::Serves(request.Path)) return FServices.Admit(request);
  TAdmission admission;
  const bool isPost = request.Method == "POST";
  if (isPost != IsPostPath(request.Path))
    admission.Refusal = WrongMethod(isPost ? "GET, HEAD" : "POST");
  else if (!isPost && request.Method != "GET" && request.Method != "HEAD")
    admission.Refusal = WrongMethod("GET, HEAD");
  else if (isPost && !IsSameOrigin(request))
    admission.Refusal = ForeignOrigin();
  else if (request.Path == "/api/upload")
    admission.Refusal = RefuseUpload(request, admission);
  else if (isPost)
    admission.BodyLimit = kLongestForm;
  return admission;
}

std::optional<TAnswer> TApi::RefuseUpload(const TRequest& request, TAdmission& admission) {
  const std::shared_ptr<TLoginSession> session = SessionOf(request);
  if (!session) return NotLoggedIn();
  const auto name = SafeFileName(request.QueryValue("name"));
  if (!name || !WindowOf(request))
    return ProblemAnswer(400, "An upload names its window and a plain file name.");
  const auto place = PlaceForUpload(session->Files(), *name);
  if (!place) return ProblemAnswer(413, "This session has uploaded too many files.");
  admission.BodyLimit = FMaxUpload;
  admission.BodyFile = *place;
  return std::nullopt;
}

TTask<TAnswer> TApi::Answer(TRequest request, std::filesystem::path bodyFile) {
  if (TServiceApi::Serves(request.Path)) co_return co_await FServices.Answer(request);
  if (request.Path == "/api/login") co_return co_await LogIn(request);
  if (request.Path == "/api/logout") co_return LogOut(request);
  if (request.Path == "/api/upload") co_return TakeUpload(request, bodyFile);
  if (request.Path == "/api/session") co_return Session(request);
  if (request.Path == "/healthz") co_return JsonAnswer(200, R"({"status":"ok"})");
  if (request.Path.starts_with(kFilesPath)) co_return GetFile(request);
  co_return FStaticFiles.Answer(request.Path);
}

TTask<TAnswer> TApi::LogIn(const TRequest& request) {
  std::optional<TLoginTry> given = ReadLoginTry(request);
  if (!given) co_return ProblemAnswer(400, "The body is not a JSON object.");
  const TLoginAnswer answer = co_await FLogin.Try(std::move(*given));
  if (answer.Result != TLoginResult::Accepted) co_return Refuse(answer);
  co_return OpenSession(request, answer.Who);
}

TAnswer TApi::OpenSession(const TRequest& request, const TOperator& who) {
  // The browser forgets the session that it had, so nobody could come back to it.
  if (const auto former = SessionOf(request)) former->End("ended");
  const std::optional<std::string> secret = FSessions.Open(who);
  if (!secret) return ProblemAnswer(503, "No more people can log in now. Try again later.");
  TAnswer answer = SessionAnswer(who);
  answer.Headers.emplace_back("Set-Cookie", SessionCookie(*secret, request.IsSecure));
  return answer;
}

TAnswer TApi::Session(const TRequest& request) {
  const std::shared_ptr<TLoginSession> session = SessionOf(request);
  if (!session) return NotLoggedIn();
  session->Touch();
  return SessionAnswer(session->Operator());
}

TAnswer TApi::LogOut(const TRequest& request) {
  if (const auto session = SessionOf(request)) session->End("ended");
  TAnswer answer = EmptyAnswer(204);
  answer.Headers.emplace_back("Set-Cookie", SessionCookie({}, request.IsSecure));
  return answer;
}

TAnswer TApi::GetFile(const TRequest& request) {
  const std::shared_ptr<TLoginSession> session = SessionOf(request);
  if (!session) return NotLoggedIn();
  session->Touch();
  const auto decoded = PercentDecoded(std::string_view(request.Path).substr(kFilesPath.size()));
  const auto name = decoded ? SafeFileName(*decoded) : std::nullopt;
  const auto file = name ? FindMadeFile(session->Files(), *name) : std::nullopt;
  if (!file) return ProblemAnswer(404, "This session has made no such file.");
  TAnswer answer = EmptyAnswer(200);
  answer.Headers.emplace_back("Content-Type", "application/octet-stream");
  answer.Headers.emplace_back("Content-Disposition",
                              "attachment; filename*=UTF-8''" + PercentEncoded(name->string()));
  answer.File = *file;
  return answer;
}

TAnswer TApi::TakeUpload(const TRequest& request, const std::filesystem::path& file) {
  const std::shared_ptr<TLoginSession> session = SessionOf(request);
  const auto window = WindowOf(request);
  // While the body came, the session may have ended.
  if (!session || !window) return NotLoggedIn();
  session->OnUploaded(*window, file);
  return EmptyAnswer(204);
}

std::shared_ptr<TLoginSession> TApi::AdmitWebSocket(const TRequest& request, TAnswer& refusal) {
  if (request.Path != "/api/ws") {
    refusal = ProblemAnswer(404, "There is no WebSocket at this address.");
    return nullptr;
  }
  if (!IsSameOrigin(request)) {
    refusal = ForeignOrigin();
    return nullptr;
  }
  std::shared_ptr<TLoginSession> session = SessionOf(request);
  if (!session) refusal = NotLoggedIn();
  return session;
}

}  // namespace zanhost
