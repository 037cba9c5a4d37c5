#pragma once

#include <string_view>

namespace zanrole {

/// Opens another console by the name of its menu function, modally, from a private copy of its description;
/// inside a foreign host by that host. A function that the installation lacks is no error: nothing happens.
void RunMenuFunction(std::string_view name);

}  // namespace zanrole
