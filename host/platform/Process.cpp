#include "host/platform/Process.h"

#include <sys/resource.h>
#include <sys/stat.h>

namespace zanhost {

void KeepPrivate() {
  ::umask(S_IRWXG | S_IRWXO);
  const ::rlimit none{0, 0};
  ::setrlimit(RLIMIT_CORE, &none);
}

void RaiseDescriptorLimit() {
  ::rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
  limit.rlim_cur = limit.rlim_max;
  ::setrlimit(RLIMIT_NOFILE, &limit);
}

}  // namespace zanhost
