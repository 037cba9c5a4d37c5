#include "host/answers/AnswerSession.h"

#include <utility>

namespace zanhost {

TAnswerSession::TAnswerSession(TInstallation& installation, TDatabase& database, const TLogin& login)
    : FModule(installation.Module()),
      FScreen([this](const std::string& text) { FMessages.push_back(text); }),
      FHost({database, installation.Resources(), installation.Settings(), FModule, FScreen, FScreen}, login),
      FSession(FModule.SessionCreate(&FHost)) {}

// What the session holds is ended as the module knows it: with its session current.
TAnswerSession::~TAnswerSession() {
  zanrole::TSession* const before = FModule.SessionMakeCurrent(FSession);
  FModule.SessionDestroy(FSession);
  FModule.SessionMakeCurrent(before);
}

TAnswerSession::TUse::TUse(TAnswerSession& session)
    : FModule(session.FModule), FBefore(FModule.SessionMakeCurrent(session.FSession)) {}

TAnswerSession::TUse::~TUse() { FModule.SessionMakeCurrent(FBefore); }

std::vector<std::string> TAnswerSession::TakeMessages() { return std::exchange(FMessages, {}); }

}  // namespace zanhost
