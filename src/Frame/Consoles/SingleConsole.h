#pragma once

#include <memory>

#include "Frame/Host/Forms.h"
#include "Frame/Host/Un_basefunc.h"
#include "Frame/Session.h"

namespace zanrole {

/// Brings up the session's one `TConsole`, made at its first use in the style that the function asks for, and
/// titles it by the function. When making it raises, the next opening tries again.
///
/// `TConsole` derives from TBaseSubForm, is made of (TFormHost&, TSubFormStyle) and has
/// `SetTitle(TBaseFunc&)`.
template <typename TConsole>
void OpenSingleConsole(TBaseFunc& func) {
  const bool modal = func.OpenStyle == kModalOpenStyle;
  auto& console = TSession::Current().Slot<std::unique_ptr<TConsole>>();
  if (!console)
    console = std::make_unique<TConsole>(FormHost(), modal ? TSubFormStyle::Modal : TSubFormStyle::Docked);
  console->SetTitle(func);
  if (modal)
    console->ShowModal();
  else
    console->Show();
}

}  // namespace zanrole
