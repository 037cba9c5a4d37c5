#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Export.h"

namespace zanrole {

/// A modal box with the icon of an error and one OK button. `text` is the key of a resource.
ZAN_EXPORT void ErrDlg(std::string_view text);
/// The same with the icon of a warning and the buttons OK and Cancel. True when OK was pressed.
ZAN_EXPORT bool WarnDlg(std::string_view text);

/// Every piece between delimiters, empty ones included: an empty text gives one empty piece, a trailing
/// delimiter a trailing empty piece. REQUIRES: the delimiter is not empty.
ZAN_EXPORT std::vector<std::string> Split(std::string_view delimiter, std::string_view text);
/// The inverse of Split. No pieces give an empty text.
ZAN_EXPORT std::string Join(std::string_view delimiter, const std::vector<std::string>& pieces);

}  // namespace zanrole
