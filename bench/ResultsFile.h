#pragma once

#include <string>
#include <vector>

#include "bench/Measure.h"

namespace zanbench {

/// Adds the lines of one benchmark to a file of JSON, which is made when it is missing:
///   {"date", "machine": {"processor","processors","system"},
///    "results":
///    [{"benchmark","engine","name","candidate","floor","ratio","goal","met","fastest","slowest"}]}
/// Times are microseconds. False when the file cannot be read or written.
bool AddResults(const std::string& file, const std::string& benchmark, const std::string& engine,
                const std::vector<TComparison>& comparisons);

}  // namespace zanbench
