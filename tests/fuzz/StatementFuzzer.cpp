// The tokenizer, the rules for each engine and the shapes of statements, on texts that a fuzzer makes up.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/fuzz/StatementProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::string broken = zantest::BrokenProperty(text);
  if (broken.empty()) return 0;
  std::fprintf(stderr, "%s\n", broken.c_str());
  std::abort();
}
