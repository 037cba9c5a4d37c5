#include "Frame/Session.h"

namespace zanrole {

namespace {

thread_local TSession* currentSession = nullptr;
THostServices* hostServices = nullptr;

}  // namespace

TSession::~TSession() {
  // Finalisation may still ask the session that holds it.
  TSession* const before = MakeCurrent(this);
  while (!FSlots.empty()) {
    const TEntry last = std::move(FSlots.back());
    FSlots.pop_back();
  }
  MakeCurrent(before == this ? nullptr : before);
}

TSession& TSession::Current() {
  if (currentSession == nullptr)
    throw EAssertionFailed("No session is current on this thread (src/Frame/Session)");
  return *currentSession;
}

TSession* TSession::MakeCurrent(TSession* session) noexcept {
  TSession* const before = currentSession;
  currentSession = session;
  return before;
}

THostServices& HostServices() {
  if (hostServices == nullptr) throw EAssertionFailed("The host's services are missing (src/Frame/Session)");
  return *hostServices;
}

void SetHostServices(THostServices* services) noexcept { hostServices = services; }

int OperatorOID() { return isBuilder() ? -1 : SystemInfo().LoginUserOID; }

std::string OperatorName() { return isBuilder() ? "[ZanBuilder]" : SystemInfo().LoginUserName; }

}  // namespace zanrole
