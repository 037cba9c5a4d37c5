#include "Frame/Consoles/FieldChecks.h"

#include "Frame/Commlib.h"
#include "Frame/Messages.h"

namespace zanrole {

bool PassesChecks(const std::vector<TFieldCheck>& checks) {
  for (const TFieldCheck& check : checks) {
    if (!check.IsBroken()) continue;
    VeshShowMessage(TZanResEx::resByExFunc(check.Message));
    check.Field->Form().FocusRequest = check.Field;
    return false;
  }
  return true;
}

}  // namespace zanrole
