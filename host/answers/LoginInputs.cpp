#include "host/answers/LoginInputs.h"

#include <algorithm>
#include <array>

namespace zanhost {

namespace {

// A test gives every input of every function of the module one login after the other, so that this list lacks
// none.
constexpr std::array<std::string_view, 3> kLoginInputs{"当前用户", "用户号", "用户号集"};

}  // namespace

bool NamesLogins(std::string_view inputName) {
  return std::find(kLoginInputs.begin(), kLoginInputs.end(), inputName) != kLoginInputs.end();
}

}  // namespace zanhost
