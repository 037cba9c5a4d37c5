#include "tests/support/ClientProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <stdexcept>

namespace zantest {

TClientProcess::TClientProcess(const std::vector<std::string>& words) {
  std::vector<std::string> all{std::filesystem::read_symlink("/proc/self/exe").parent_path() /
                               "zan_test_client"};
  all.insert(all.end(), words.begin(), words.end());
  std::vector<char*> arguments;
  for (std::string& word : all) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  std::array<int, 2> pipe{};
  if (::pipe2(pipe.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  FProcess = ::fork();
  if (FProcess == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::dup2(pipe[1], STDOUT_FILENO);
    ::execv(arguments[0], arguments.data());
    ::_exit(127);
  }
  ::close(pipe[1]);
  FOutput = pipe[0];
}

TClientProcess::~TClientProcess() {
  Kill();
  ::close(FOutput);
}

/// False at the end of what the process writes.
bool TClientProcess::Fill() {
  std::array<char, 4096> piece;
  ssize_t got = 0;
  do {
    got = ::read(FOutput, piece.data(), piece.size());
  } while (got < 0 && errno == EINTR);
  if (got > 0) FBuffer.append(piece.data(), static_cast<std::size_t>(got));
  return got > 0;
}

std::string TClientProcess::ReadLine() {
  std::size_t end = FBuffer.find('\n');
  while (end == std::string::npos) {
    if (!Fill()) return {};
    end = FBuffer.find('\n');
  }
  std::string line = FBuffer.substr(0, end);
  FBuffer.erase(0, end + 1);
  return line;
}

std::vector<std::string> TClientProcess::ReadRest() {
  std::vector<std::string> lines;
  for (std::string line = ReadLine(); !line.empty(); line = ReadLine()) lines.push_back(std::move(line));
  return lines;
}

void TClientProcess::Kill() {
  if (FProcess < 0) return;
  ::kill(FProcess, SIGKILL);
  ::waitpid(FProcess, nullptr, 0);
  FProcess = -1;
}

}  // namespace zantest
