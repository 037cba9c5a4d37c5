#include <vector>

#include "Domain/U_DomainFuncs.h"
#include "Frame/Package.h"
#include "Frame/PartyMenuFunc.h"

namespace zanrole {

namespace {

std::vector<TFuncClass> AllFuncClasses() {
  std::vector<TFuncClass> classes;
  AppendMenuFuncClasses(classes);
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
