#include "tests/cli/Program.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "host/platform/Files.h"

namespace zantest {

namespace {

constexpr int kCannotRun = 127;

[[noreturn]] void BecomeProgram(const std::vector<std::string>& words) {
  std::vector<char*> arguments{const_cast<char*>(ZANHOST)};
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  ::execv(ZANHOST, arguments.data());
  ::_exit(kCannotRun);
}

int StatusOf(::pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

void Redirect(int target, const std::filesystem::path& file, int flags) {
  const int opened = ::open(file.c_str(), flags, 0600);
  if (opened < 0) ::_exit(kCannotRun);
  ::dup2(opened, target);
  ::close(opened);
}

// Reads until the terminal has shown `text` (or everything, when it is empty). False at the end.
bool ReadUntil(int terminal, const std::string& text, std::string& shown) {
  const std::size_t start = shown.size();
  char bytes[512];
  while (text.empty() || shown.find(text, start) == std::string::npos) {
    const ::ssize_t count = ::read(terminal, bytes, sizeof(bytes));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;  // a terminal whose program has ended gives an error
    shown.append(bytes, static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace

TRan RunProgram(const std::vector<std::string>& words, const std::string& input) {
  const TTemporaryFolder files;
  zanhost::ReplacePrivateFile(files / "in", input);
  const ::pid_t child = ::fork();
  if (child < 0) throw std::system_error(errno, std::generic_category());
  if (child == 0) {
    Redirect(STDIN_FILENO, files / "in", O_RDONLY);
    Redirect(STDOUT_FILENO, files / "out", O_WRONLY | O_CREAT);
    Redirect(STDERR_FILENO, files / "err", O_WRONLY | O_CREAT);
    BecomeProgram(words);
  }
  TRan ran;
  ran.Status = StatusOf(child);
  ran.Out = zanhost::ReadFile(files / "out");
  ran.Err = zanhost::ReadFile(files / "err");
  return ran;
}

TRan RunAtTerminal(const std::vector<std::string>& words, const std::vector<TTyped>& typed) {
  int terminal = -1;
  const ::pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child < 0) throw std::system_error(errno, std::generic_category());
  if (child == 0) BecomeProgram(words);
  TRan ran;
  for (const TTyped& answer : typed) {
    if (!ReadUntil(terminal, answer.Question, ran.Out)) break;
    const ::ssize_t written = ::write(terminal, answer.Keys.data(), answer.Keys.size());
    if (written != static_cast<::ssize_t>(answer.Keys.size())) break;
  }
  ReadUntil(terminal, {}, ran.Out);
  ::close(terminal);
  ran.Status = StatusOf(child);
  return ran;
}

TSampleInstallation::TSampleInstallation(int people) {
  FMade = Run({"sample", "--people", std::to_string(people)});
}

TRan TSampleInstallation::Run(std::vector<std::string> words, const std::string& input) const {
  words.insert(words.begin() + 1, {"--data", Url()});
  return RunProgram(words, input);
}

}  // namespace zantest
