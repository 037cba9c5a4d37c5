#include "host/answers/PastingFunctions.h"

#include <algorithm>
#include <array>

namespace zanhost {

namespace {

// In the order of their names. A test calls every function of the module with texts that would show in its
// statements, so that this list can neither lack one nor hold one too many.
constexpr std::array<std::string_view, 9> kPastingFunctions{
    "CheckDomainAuthByCode",  // a code, name or path, with quotes around it
    "CheckDomainAuthByName",
    "CheckDomainAuthByNodeCode",
    "GetDomainInfo",      // a column or expression, and a condition
    "GetDomainManagers",  // a column or expression
    "GetDomainRoles",
    "GetDomainUsers",
    "GetDomains",
    "RoleSuperiorAllEx",  // a login, with quotes around it
};

static_assert(std::is_sorted(kPastingFunctions.begin(), kPastingFunctions.end()));

}  // namespace

bool PastesText(std::string_view functionName) {
  return std::binary_search(kPastingFunctions.begin(), kPastingFunctions.end(), functionName);
}

}  // namespace zanhost
