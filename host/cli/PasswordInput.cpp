#include "host/cli/PasswordInput.h"

#include <fmt/format.h>
#include <termios.h>
#include <unistd.h>

#include <iostream>

#include "Frame/Host/Classes.h"

namespace zanhost {

namespace {

// The terminal does not show what is typed for as long as the object lives.
class TSilentTerminal {
 public:
  TSilentTerminal() {
    if (::tcgetattr(STDIN_FILENO, &FBefore) != 0) throw zanrole::EZanError("The terminal cannot be read.");
    ::termios silent = FBefore;
    silent.c_lflag &= ~static_cast<::tcflag_t>(ECHO);
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
  }
  ~TSilentTerminal() { ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &FBefore); }
  TSilentTerminal(const TSilentTerminal&) = delete;
  TSilentTerminal& operator=(const TSilentTerminal&) = delete;

 private:
  ::termios FBefore{};
};

std::string ReadLine() {
  std::string line;
  if (!std::getline(std::cin, line)) throw zanrole::EZanError("No password was given.");
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::string Ask(const char* question) {
  fmt::print(stderr, "{}: ", question);
  std::string answer = ReadLine();
  fmt::print(stderr, "\n");
  return answer;
}

std::string AskTwice() {
  const TSilentTerminal silent;
  std::string password = Ask("New password");
  if (Ask("Once more") != password) throw zanrole::EZanError("The two entries differ; nothing was changed.");
  return password;
}

}  // namespace

std::string ReadNewPassword() {
  std::string password = ::isatty(STDIN_FILENO) != 0 ? AskTwice() : ReadLine();
  if (password.empty()) throw zanrole::EZanError("An empty password is not taken; nothing was changed.");
  return password;
}

}  // namespace zanhost
