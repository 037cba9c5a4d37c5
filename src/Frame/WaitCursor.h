#pragma once

#include "Frame/Session.h"

namespace zanrole {

/// The wait cursor is on for as long as the object lives.
class TWaitCursor {
 public:
  TWaitCursor() { FormHost().SetBusy(true); }
  ~TWaitCursor() { FormHost().SetBusy(false); }
  TWaitCursor(const TWaitCursor&) = delete;
  TWaitCursor& operator=(const TWaitCursor&) = delete;
};

}  // namespace zanrole
