#pragma once

#include <string_view>

namespace zanhost {

/// The compiled catalogue of po/en.po, as gettext's tools make it. Lives as long as the program.
std::string_view EnglishTexts();

}  // namespace zanhost
