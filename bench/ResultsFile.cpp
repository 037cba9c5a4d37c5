#include "bench/ResultsFile.h"

#include <sys/utsname.h>

#include <boost/json.hpp>
#include <ctime>
#include <fstream>
#include <sstream>
#include <thread>

namespace zanbench {

namespace {

std::string Now() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

/// The name that the processor gives itself; empty when the system does not tell it.
std::string Processor() {
  std::ifstream facts("/proc/cpuinfo");
  for (std::string line; std::getline(facts, line);) {
    const std::size_t colon = line.find(": ");
    if (line.starts_with("model name") && colon != std::string::npos) return line.substr(colon + 2);
  }
  return {};
}

boost::json::object Machine() {
  utsname system{};
  uname(&system);
  return {{"processor", Processor()},
          {"processors", std::thread::hardware_concurrency()},
          {"system", std::string(system.sysname) + " " + system.release}};
}

/// What the file holds; null when it holds something else than results.
boost::json::value Load(const std::string& file) {
  std::ifstream stream(file);
  if (!stream) return {{"date", Now()}, {"machine", Machine()}, {"results", boost::json::array()}};
  std::ostringstream text;
  text << stream.rdbuf();
  boost::system::error_code error;
  const boost::json::value loaded = boost::json::parse(text.str(), error);
  const bool usable = !error && loaded.is_object() && loaded.as_object().contains("results") &&
                      loaded.at("results").is_array();
  return usable ? loaded : boost::json::value();
}

}  // namespace

bool AddResults(const std::string& file, const std::string& benchmark, const std::string& engine,
                const std::vector<TComparison>& comparisons) {
  boost::json::value run = Load(file);
  if (run.is_null()) return false;
  boost::json::array& results = run.at("results").as_array();
  for (const TComparison& line : comparisons)
    results.push_back({{"benchmark", benchmark},
                       {"engine", engine},
                       {"name", line.Name},
                       {"candidate", line.Candidate},
                       {"floor", line.Floor},
                       {"ratio", line.Ratio()},
                       {"goal", line.Goal},
                       {"met", line.IsMet()},
                       {"fastest", line.Fastest},
                       {"slowest", line.Slowest}});
  std::ofstream stream(file);
  stream << boost::json::serialize(run) << "\n";
  return static_cast<bool>(stream.flush());
}

}  // namespace zanbench
