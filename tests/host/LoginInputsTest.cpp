#include "host/answers/LoginInputs.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/host/FunctionValues.h"
#include "tests/host/InstalledSample.h"

// Which inputs of functions hold logins: asked of the functions themselves.

namespace zantest {

namespace {

/// A session of a manager of the sample.
class TManagerSession {
 public:
  TManagerSession() : FSession(FSample.OptionsOf(FSample.Sample.ManagerLogin), [](const std::string&) {}) {}

  zanhost::TDatabase& Database() { return FSample.Database(); }
  std::vector<const zanhost::TFunction*> Functions() { return SystemFunctions(FSession.Functions()); }

  /// All that the function answers; "failed" when it failed.
  std::string Call(const std::string& name, const TFunctionValues& inputs) {
    std::string answer;
    try {
      for (const auto& [output, value] : FSession.Call(name, {inputs.begin(), inputs.end()}).Out)
        answer += output + "=" + value + "\n";
    } catch (const zanrole::EZanError&) {
      return "failed";
    }
    return answer;
  }

 private:
  TInstalledSample FSample;
  zanhost::TFunctionSession FSession;
};

/// Does the function answer otherwise for some login than for a name that nobody bears?
bool TellsLoginsApart(TManagerSession& session, const std::string& function, TFunctionValues values,
                      const std::string& input, const std::vector<std::string>& logins) {
  values[input] = "nobody bears this";
  const std::string ofNobody = session.Call(function, values);
  return std::any_of(logins.begin(), logins.end(), [&](const std::string& login) {
    values[input] = login;
    return session.Call(function, values) != ofNobody;
  });
}

}  // namespace

TEST(LoginInputs, AreThoseWhoseLoginChangesAnAnswer) {
  TManagerSession session;
  const TFunctionValues existing = ExistingValues(session.Database());
  const std::vector<std::string> logins =
      Texts(session.Database(), "select UserID from STUsers where uGroup = 0");
  ASSERT_GT(logins.size(), 10u);
  std::set<std::string> telling;
  std::set<std::string> listed;
  for (const zanhost::TFunction* function : session.Functions())
    for (const auto& [input, value] : existing) {
      if (zanhost::NamesLogins(input)) listed.insert(input);
      if (TellsLoginsApart(session, function->Name, existing, input, logins)) telling.insert(input);
    }
  EXPECT_EQ(listed, telling);
}

TEST(LoginInputs, AreNotFoundByAnotherSpelling) {
  EXPECT_TRUE(zanhost::NamesLogins("当前用户"));
  EXPECT_FALSE(zanhost::NamesLogins("当前用户 "));
  EXPECT_FALSE(zanhost::NamesLogins("岗位号"));
  EXPECT_FALSE(zanhost::NamesLogins(""));
}

}  // namespace zantest
