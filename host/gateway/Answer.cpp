#include "host/gateway/Answer.h"

#include <fmt/format.h>

#include <boost/json/serialize.hpp>
#include <boost/json/string.hpp>
#include <boost/json/value.hpp>

namespace zanhost {

namespace {

TAnswer TextAnswer(unsigned status, std::string_view type, std::string body) {
  TAnswer answer;
  answer.Status = status;
  answer.Headers = {{"Content-Type", std::string(type)}, {"Cache-Control", "no-store"}};
  answer.Body = std::make_shared<const std::string>(std::move(body));
  return answer;
}

}  // namespace

TAnswer JsonAnswer(unsigned status, std::string body) {
  return TextAnswer(status, "application/json", std::move(body));
}

TAnswer EmptyAnswer(unsigned status) {
  TAnswer answer;
  answer.Status = status;
  answer.Headers = {{"Cache-Control", "no-store"}};
  return answer;
}

TAnswer ProblemAnswer(unsigned status, std::string_view detail, std::string_view more) {
  const auto quoted = [](std::string_view text) {
    return boost::json::serialize(boost::json::value(boost::json::string(text)));
  };
  return TextAnswer(status, "application/problem+json",
                    fmt::format(R"({{"title":{},"status":{},"detail":{}{}{}}})", quoted(ReasonPhrase(status)),
                                status, quoted(detail), more.empty() ? "" : ",", more));
}

std::string_view ReasonPhrase(unsigned status) {
  switch (status) {
    case 400:
      return "Bad request";
    case 401:
      return "Not logged in";
    case 403:
      return "Refused";
    case 404:
      return "Not found";
    case 405:
      return "Method not allowed";
    case 409:
      return "Conflict";
    case 413:
      return "Too large";
    case 415:
      return "Wrong type";
    case 421:
      return "Wrong server";
    case 422:
      return "Not accepted";
    case 429:
      return "Too many tries";
    case 431:
      return "Head too large";
    case 501:
      return "Not supported";
    case 503:
      return "Not available now";
    default:
      return "Error";
  }
}

}  // namespace zanhost
