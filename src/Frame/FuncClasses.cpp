#include <vector>

#include "Domain/U_DomainFuncs.h"
#include "Frame/Package.h"
#include "Frame/PartyMenuFunc.h"
#include "Party/PartySysFunc.h"

namespace zanrole {

namespace {

std::vector<TFuncClass> AllFuncClasses() {
  std::vector<TFuncClass> classes;
  AppendMenuFuncClasses(classes);
  AppendPartyFuncClasses(classes);
  AppendDomainFuncClasses(classes);
  return classes;
}

}  // namespace

const TFuncClass* ZanroleFuncClasses(std::size_t* count) {
  static const std::vector<TFuncClass> classes = AllFuncClasses();
  *count = classes.size();
  return classes.data();
}

}  // namespace zanrole
