// Another client of a database, in a process of its own: it works until it is killed, and writes a line for
// each thing that the database has acknowledged.
//
//   zan_test_client batches URL FIRST      writes batches numbered from FIRST on: "batch N"
//   zan_test_client draws URL NAME COUNT   draws numbers: "draw N"
//   zan_test_client mix URL SEED FIRST     all of these, and new users, as chance has it: "user N"
//   zan_test_client run URL STATEMENT …    runs statements: "ok", or the message of the fault
//
// "ready" comes first. A fault in between is told as "fault MESSAGE".

#include <functional>
#include <iostream>
#include <random>

#include "Domain/U_DomainFuncsImp.h"
#include "host/platform/Numbering.h"
#include "host/query/DataUrl.h"
#include "tests/conformance/Conformance.h"
#include "tests/support/BatchesTable.h"

namespace zantest {

namespace {

using zanhost::TDatabase;

/// What was acknowledged must be known to the one who waits for it before the next step begins.
void Say(const std::string& line) { std::cout << line << std::endl; }

std::string FaultOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const zanrole::EDatabaseError& fault) {
    return fault.Message();
  }
  return {};
}

void TellFault(const std::string& message) {
  if (!message.empty()) Say("fault " + message);
}

void WriteBatches(TDatabase& database, int first) {
  for (int number = first;; ++number) {
    WriteBatch(database, number);
    Say("batch " + std::to_string(number));
  }
}

void Draw(TDatabase& database, const std::string& name, int count) {
  for (int i = 0; i < count; ++i) Say("draw " + std::to_string(zanhost::NewDjLsh(database, name)));
}

void Mix(TDatabase& database, unsigned seed, int first) {
  std::mt19937 random(seed);
  for (int number = first;; ++number) {
    TellFault(FaultOf([&] {
      switch (random() % 4) {
        case 0:
          WriteBatch(database, number);
          return Say("batch " + std::to_string(number));
        case 1:
          return Draw(database, random() % 2 == 0 ? "User" : "user", 1);
        case 2:
          return Say("user " + std::to_string(zanrole::GetNewUserOID()));
        default:
          zanrole::TDomainFuncImpl::GetDomainUsers("", "域范围", true);
      }
    }));
  }
}

int Main(const std::vector<std::string>& words) {
  const auto number = [&](std::size_t place) { return std::stoi(words.at(place)); };
  const auto database = zanhost::OpenDatabase(words.at(1), zanhost::TOpenMode::CreateIfMissing);
  const TEngineHost host(*database);
  Say("ready");
  if (words[0] == "batches") WriteBatches(*database, number(2));
  if (words[0] == "draws") Draw(*database, words.at(2), number(3));
  if (words[0] == "mix") Mix(*database, static_cast<unsigned>(number(2)), number(3));
  if (words[0] != "run") return 0;
  for (std::size_t i = 2; i < words.size(); ++i) {
    const std::string fault = FaultOf([&] { zanrole::ExecStatement(*database->GetQuery(), words[i]); });
    Say(fault.empty() ? "ok" : fault);
  }
  return 0;
}

}  // namespace

}  // namespace zantest

int main(int count, char** words) {
  try {
    return zantest::Main({words + 1, words + count});
  } catch (const zanrole::EDatabaseError& fault) {
    std::cout << "fault " << fault.Message() << std::endl;
  } catch (const std::exception& fault) {
    std::cout << "fault " << fault.what() << std::endl;
  }
  return 1;
}
