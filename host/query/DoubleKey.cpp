#include "host/query/DoubleKey.h"

#include <fmt/format.h>

namespace zanhost {

std::string DescribeDoubleKey(std::string_view engineWords) {
  return fmt::format(
      "Another client has stored a row with the same key in the meantime ({}). Nothing was changed; try "
      "again.",
      engineWords);
}

}  // namespace zanhost
