#include "tests/support/SourceTree.h"

namespace zantest {

std::filesystem::path SourceTree() { return ZAN_SOURCE_TREE; }

}  // namespace zantest
