#pragma once

#include <string>

#include "Frame/Host/Un_basefunc.h"

namespace zanrole {

/// The title of a console in the language of the session: the caption of the menu entry that opened it, or
/// else the name of its function.
class TConsoleTitle {
 public:
  void Take(TBaseFunc& func);
  /// Looked up anew at each call: it follows a change of the language.
  std::string Text() const;

 private:
  std::string FMenuCaption;
  std::string FFuncName;
};

}  // namespace zanrole
