#include "host/answers/AnswerDesk.h"

#include <fmt/format.h>

#include <boost/json.hpp>

#include "host/answers/FunctionAnswers.h"
#include "host/answers/PastingFunctions.h"
#include "host/answers/Places.h"
#include "host/answers/RightAnswers.h"
#include "host/worker/FunctionSession.h"

namespace zanhost {

namespace json = boost::json;

namespace {

constexpr const char* kUnreadable = "The data cannot be read now. The server's log says why.";

json::object AnswerWith(TAnswerSession& session, const TQuestion& question) {
  switch (question.Kind) {
    case TQuestionKind::Functions:
      return AnswerFunctions(session, question);
    case TQuestionKind::Function:
      return AnswerFunction(session, question);
    case TQuestionKind::Call:
      return AnswerCall(session, question);
    case TQuestionKind::Menus:
      return AnswerMenus(session, question);
    case TQuestionKind::Denied:
      return AnswerDenied(session, question);
    case TQuestionKind::Right:
      return AnswerRight(session, question);
    case TQuestionKind::Holders:
      return AnswerHolders(session, question);
  }
  return {};
}

TSessionKey KeyOf(const TQuestion& question) {
  const bool pastes = question.Kind == TQuestionKind::Call && PastesText(question.Function);
  return {question.Login, question.Language, pastes};
}

/// The embedded database has no accounts: its own URL does.
std::string RestrictedDataOf(TInstallation& installation, const std::string& data, const std::string& given) {
  const bool isEmbedded = installation.Database().Server() == TServerKind::Sqlite;
  return given.empty() && isEmbedded ? data : given;
}

}  // namespace

TAnswerDesk::TAnswerDesk(const TSessionOptions& options, const std::string& restrictedData)
    : FInstallation(options),
      FPlaces(PlacesOf({options.Data, restrictedData})),
      FSessions(FInstallation, RestrictedDataOf(FInstallation, options.Data, restrictedData)) {}

TReply TAnswerDesk::Answer(const TQuestion& question) {
  try {
    return {200, AnswerInSession(question)};
  } catch (const ERefusedQuestion& refusal) {
    return RefusalOf(question, refusal);
  } catch (const zanrole::EZanError& fault) {
    return Unreadable(question, fault);
  }
}

// A function fails as well when the server has gone, which is no fault of its caller.
TReply TAnswerDesk::RefusalOf(const TQuestion& question, const ERefusedQuestion& refusal) {
  if (NamesOneOf(FPlaces, refusal.what())) return Unreadable(question, refusal);
  try {
    if (question.Kind == TQuestionKind::Call) FSessions.CheckData();
  } catch (const zanrole::EDatabaseError& fault) {
    return Unreadable(question, fault);
  }
  return {refusal.Status(), refusal.what()};
}

TReply TAnswerDesk::Unreadable(const TQuestion& question, const std::exception& fault) {
  LogFault(question, fault);
  return {503, kUnreadable};
}

std::string TAnswerDesk::AnswerInSession(const TQuestion& question) {
  TAnswerSession& session = FSessions.Find(KeyOf(question));
  const TAnswerSession::TUse use(session);
  return json::serialize(AnswerWith(session, question));
}

void TAnswerDesk::LogFault(const TQuestion& question, const std::exception& fault) {
  FInstallation.Log().Write({NewSessionName(),
                             question.Login,
                             fmt::format("answer {}", WordOf(question.Kind)),
                             OutcomeOf(fault),
                             {}});
}

}  // namespace zanhost
