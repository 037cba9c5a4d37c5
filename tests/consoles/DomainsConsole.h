#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/query/Database.h"
#include "tests/consoles/ConsoleDriver.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

/// The console of the domain tree on an installation of its own, empty but for the super user "sa" (`OID` 1)
/// and the ordinary user "plain" (`OID` 2).
class TDomainsConsoleTest : public testing::Test {
 protected:
  static constexpr const char* kConsole = "TFormDomains";
  static constexpr const char* kDialog = "TFormDomainEdit";

  TDomainsConsoleTest();

  /// Opens the console as this user.
  std::unique_ptr<TConsoleDriver> OpenAs(const std::string& user);
  /// Creates a domain below a shown node, which stays selected, through the dialog.
  static void Create(TConsoleDriver& console, const std::string& parent, const std::string& name,
                     const std::string& code);
  static std::vector<std::string> Tree(const TConsoleDriver& console);
  /// Opens the selected domain, gives it a name, and presses OK.
  static void Rename(TConsoleDriver& console, const std::string& name);

  void Exec(const std::string& statement);
  /// First column of all rows, or the first row with its values joined by "|".
  std::vector<std::string> Column(const std::string& statement);
  std::string Row(const std::string& statement);

  TTemporaryFolder FFolder;
  std::string FUrl;
  std::unique_ptr<zanhost::TDatabase> FDatabase;
};

}  // namespace zantest
