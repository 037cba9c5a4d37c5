#include "Frame/RunFunction.h"

#include "Frame/Session.h"

namespace zanrole {

void RunMenuFunction(std::string_view name) {
  THostSession& host = TSession::Current().Host();
  if (TRunHostFunction* foreign = host.RunHostFunction()) {
    std::string result;
    foreign->Run(name, {}, 0, 0, 0, result);
    return;
  }
  const TFuncInfo* shared = host.FuncManager().FindFuncInfo(name, TFuncType::Menu);
  if (shared == nullptr) return;
  TFuncInfo copy;
  copy.Assign(*shared);
  host.FuncManager().RunFunc(copy, &host.VeshParser(), kModalOpenStyle);
}

}  // namespace zanrole
