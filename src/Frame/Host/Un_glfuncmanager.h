#pragma once

#include <string_view>

#include "Frame/Host/Un_basefunc.h"

namespace zanrole {

/// The host's parser of expressions; the module only passes it on.
class ZAN_EXPORT TZanParser {
 public:
  virtual ~TZanParser();
  virtual void ClearContexts() = 0;
};

/// The host's functions by name, those of this module and of all others.
class ZAN_EXPORT TFuncManager {
 public:
  virtual ~TFuncManager();
  /// The shared description, owned by the manager; null when the installation has no such function.
  virtual const TFuncInfo* FindFuncInfo(std::string_view name, TFuncType type) = 0;
  /// Runs a function with its default parameters; false when there is none of that name.
  virtual bool RunFuncName(std::string_view name, int style) = 0;
  /// Runs a function from a private copy of its description.
  virtual bool RunFunc(TFuncInfo& info, TZanParser* parser, int style) = 0;
};

/// Takes the place of the function manager when the module runs inside a foreign host.
class ZAN_EXPORT TRunHostFunction {
 public:
  virtual ~TRunHostFunction();
  virtual bool Run(std::string_view name, std::string_view argument, int first, int second, int third,
                   std::string& result) = 0;
};

}  // namespace zanrole
