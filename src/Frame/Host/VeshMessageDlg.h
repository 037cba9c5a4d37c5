#pragma once

#include <string>
#include <string_view>

#include "Frame/Host/Export.h"

namespace zanrole {

enum class TMsgDlgType { Information, Warning, Error, Confirmation };

/// Buttons of a message box; a set is their sum.
enum TMsgDlgBtn : unsigned { mbNone = 0, mbOK = 1, mbCancel = 2, mbYes = 4, mbNo = 8 };

/// The host's modal boxes. Each returns when a person has answered; closing the box counts as Cancel, or as
/// No or OK where there is no Cancel.
class ZAN_EXPORT TMessageDialogs {
 public:
  virtual ~TMessageDialogs();
  /// `title` may be empty: the host's own title is used.
  virtual TMsgDlgBtn MessageBox(std::string_view title, std::string_view text, TMsgDlgType kind,
                                unsigned buttons) = 0;
};

}  // namespace zanrole
