#include "Frame/Consoles/ConsoleTitle.h"

#include "Frame/Commlib.h"
#include "Frame/MenuNode.h"

namespace zanrole {

void TConsoleTitle::Take(TBaseFunc& func) {
  FFuncName = func.FuncName();
  FMenuCaption = ReadMenuNode(func).Caption;
  if (FMenuCaption == TZanResEx::resByExFunc(FFuncName)) FMenuCaption.clear();
}

std::string TConsoleTitle::Text() const {
  return FMenuCaption.empty() ? TZanResEx::resByExFunc(FFuncName)
                              : TZanResEx::resByExFunc(FMenuCaption, "Menu");
}

}  // namespace zanrole
