#pragma once

#include <string>
#include <string_view>

namespace zanhost {

/// What a person is told when a key refuses a row. Consoles look before they write, so the other row came in
/// between. `engineWords` names the key.
std::string DescribeDoubleKey(std::string_view engineWords);

}  // namespace zanhost
