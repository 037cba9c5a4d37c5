#include "host/worker/EndWithGateway.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>

namespace zanhost {

namespace {

constexpr unsigned kGraceSeconds = 10;

// SIGALRM ends the process wherever it is. The signal comes more than once, for each thread of the gateway
// that dies; later ones neither shorten nor prolong the grace.
void BeginGrace(int /*signal*/) {
  ::alarm(kGraceSeconds);
  std::signal(SIGTERM, SIG_IGN);
}

}  // namespace

void EndWithGateway() {
  std::signal(SIGALRM, SIG_DFL);
  struct sigaction grace {};
  grace.sa_handler = &BeginGrace;
  // The operation that runs does not notice the signal.
  grace.sa_flags = SA_RESTART;
  ::sigaction(SIGTERM, &grace, nullptr);
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
}

}  // namespace zanhost
