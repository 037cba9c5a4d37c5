#pragma once

#include <filesystem>

namespace zantest {

/// The folder of the sources that the tests were built from.
std::filesystem::path SourceTree();

}  // namespace zantest
