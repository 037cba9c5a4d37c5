#include "host/gateway/ServiceApi.h"

#include <fmt/format.h>

#include <utility>

#include "host/answers/PastingFunctions.h"
#include "host/gateway/Network.h"
#include "host/gateway/OpenApi.h"
#include "host/gateway/ServiceInput.h"
#include "host/gateway/ServiceScope.h"

namespace zanhost {

namespace {

constexpr std::uint64_t kLongestBody = 64UL * 1024;
constexpr TThrottleRule kPerNetwork{10, std::chrono::seconds(60)};
constexpr std::string_view kBearer = "Bearer ";

std::string_view BearerOf(const TRequest& request) {
  const std::string_view header = request.Header("authorization");
  const bool isBearer = zanrole::SameText(header.substr(0, kBearer.size()), kBearer);
  return isBearer ? header.substr(kBearer.size()) : std::string_view();
}

TAnswer Retry(unsigned status, std::string_view detail, std::chrono::seconds after) {
  TAnswer answer = ProblemAnswer(status, detail);
  answer.Headers.emplace_back("Retry-After", std::to_string(after.count()));
  return answer;
}

TAnswer TooOften(std::string_view what, std::chrono::seconds wait) {
  return Retry(429, fmt::format("{} Try again in {} s.", what, wait.count()), wait);
}

std::string_view AllowedMethods(const std::optional<TQuestionKind>& kind) {
  const bool isFunction = kind == TQuestionKind::Function || kind == TQuestionKind::Call;
  return isFunction ? "GET, HEAD, POST" : "GET, HEAD";
}

bool TakesMethod(const TServiceRoute& route, std::string_view method) {
  if (method == "POST") return route.Kind == TQuestionKind::Call;
  return method == "GET" || method == "HEAD";
}

bool IsJson(std::string_view contentType) {
  const std::string_view type = contentType.substr(0, contentType.find_first_of("; "));
  return zanrole::SameText(type, "application/json");
}

TAnswer AnswerOf(TReply reply) {
  if (reply.Status == 200) return JsonAnswer(200, std::move(reply.Body));
  if (reply.Status == 503) return Retry(503, reply.Body, std::chrono::seconds(1));
  return ProblemAnswer(reply.Status, reply.Body);
}

}  // namespace

TServiceApi::TServiceApi(const std::filesystem::path& folder, TAnswerPool& pool, TLog& log)
    : FPool(pool), FLog(log), FTokens(folder), FWrongTokens(kPerNetwork) {}

TAdmission TServiceApi::Admit(const TRequest& request) {
  TAdmission admission;
  const auto route = ServiceRouteOf(request.Method, request.Path);
  if (route && !route->Kind && TakesMethod(*route, request.Method)) return admission;
  admission.Refusal = RefuseToken(request);
  if (admission.Refusal) return admission;
  if (!route)
    admission.Refusal = ProblemAnswer(404, "There is no such address.");
  else if (!TakesMethod(*route, request.Method))
    admission.Refusal = WrongMethod(AllowedMethods(route->Kind));
  else if (route->Kind == TQuestionKind::Call && !IsJson(request.Header("content-type")))
    admission.Refusal = ProblemAnswer(415, "The body has to be application/json.");
  else if (route->Kind == TQuestionKind::Call)
    admission.BodyLimit = kLongestBody;
  return admission;
}

std::optional<TAnswer> TServiceApi::RefuseToken(const TRequest& request) {
  TBearerToken token;
  try {
    const TTokenVerdict verdict = FTokens.Check(BearerOf(request), std::chrono::system_clock::now(), token);
    if (verdict != TTokenVerdict::Valid) return RefuseBearer(request, verdict);
  } catch (const ETokensUnreadable& fault) {
    if (fault.IsNews()) FLog.Write({{}, {}, "tokens", fault.what(), {}});
    return Retry(503, "The server cannot check tokens now. Its log says why.", std::chrono::seconds(1));
  }
  return RefuseRate(token);
}

std::optional<TAnswer> TServiceApi::RefuseRate(const TBearerToken& token) {
  const auto wait = FRates.Take(token, std::chrono::steady_clock::now());
  if (!wait) return std::nullopt;
  return TooOften("The token asks too often.", *wait);
}

TAnswer TServiceApi::RefuseBearer(const TRequest& request, TTokenVerdict verdict) {
  const std::string network = NetworkOf(request.Address);
  const auto now = std::chrono::steady_clock::now();
  const std::chrono::seconds wait = FWrongTokens.Delay(network, now);
  if (wait > std::chrono::seconds::zero()) return TooOften("Too many wrong tokens.", wait);
  FWrongTokens.Begin(network, now);
  const bool hasExpired = verdict == TTokenVerdict::Expired;
  const char* const why = hasExpired ? "The token has expired." : "The token is not valid.";
  FLog.Write({{}, {}, "token", fmt::format("refused: {} ({})", why, request.Address), {}});
  TAnswer answer = ProblemAnswer(401, why);
  answer.Headers.emplace_back("WWW-Authenticate", R"(Bearer realm="zanrole", error="invalid_token")");
  return answer;
}

TTask<TAnswer> TServiceApi::Answer(const TRequest& request) {
  const auto route = ServiceRouteOf(request.Method, request.Path);
  if (route && !route->Kind) co_return JsonAnswer(200, std::string(OpenApiDocument()));
  std::optional<TAnswer> refusal;
  try {
    co_return co_await AnswerQuestion(*route, request);
  } catch (const ERefusedQuestion& refused) {
    refusal = ProblemAnswer(refused.Status(), refused.what());
  }
  co_return std::move(*refusal);
}

TTask<TAnswer> TServiceApi::AnswerQuestion(const TServiceRoute& route, const TRequest& request) {
  TBearerToken token;
  // Asked again: while the body came, the token may have been revoked.
  const TTokenVerdict verdict = FTokens.Check(BearerOf(request), std::chrono::system_clock::now(), token);
  if (verdict != TTokenVerdict::Valid) co_return RefuseBearer(request, verdict);
  TQuestion question = ReadServiceQuestion(route, request, token.Scope);
  const std::string lack = LackOf(token.Scope, question);
  if (!lack.empty()) {
    LogLine(token, question, "refused: " + lack);
    co_return ProblemAnswer(403, lack);
  }
  if (question.Kind == TQuestionKind::Call && PastesText(question.Function))
    LogLine(token, question, "asked");
  co_return AnswerOf(co_await FPool.Ask(std::move(question)));
}

void TServiceApi::LogLine(const TBearerToken& token, const TQuestion& question, std::string_view outcome) {
  std::string operation = fmt::format("ask {}", WordOf(question.Kind));
  if (!question.Function.empty()) operation += " " + question.Function;
  FLog.Write({"token " + token.Id, question.Login, std::move(operation), std::string(outcome), {}});
}

}  // namespace zanhost
