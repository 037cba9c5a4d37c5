#pragma once

#include <map>
#include <memory>
#include <string>

#include "Frame/Package.h"
#include "host/platform/Sample.h"
#include "host/query/MariaDb/RestrictedAccount.h"
#include "host/query/RestrictedDatabase.h"
#include "tests/conformance/Conformance.h"

namespace zantest {

/// The passwords that are looked for in everything that a restricted session gives away.
inline constexpr char kPassword[] = "geheim-4711";

/// The sample company, with passwords that are known, and a restricted session beside the full one.
class TRestrictedWorld {
 public:
  /// REQUIRES: CanBeRestricted(database).
  TRestrictedWorld(TEngine& engine, zanhost::TDatabase& database) : FFull(&database) {
    engine.InstallSchema();
    TRecordingServices services;
    Sample = zanhost::MakeSample(database, {.People = 40, .AdminPassword = "x", .Cipher = services.Cipher()});
    Exec("update STUsers set Password = '" + std::string(kPassword) + "'");
    Exec("update UserH set bbspassword = '" + std::string(kPassword) + "', loginPassword = '" + kPassword +
         "'");
    Restricted = zanhost::OpenRestricted(RestrictedUrl(engine));
  }

  static bool CanBeRestricted(TEngine& engine) { return !engine.Url().starts_with("odbc:"); }

  std::vector<std::string> Column(const std::string& statement) {
    const auto query = FFull->GetQuery();
    query->SQL().SetText(statement);
    std::vector<std::string> values;
    for (query->Open(); !query->Eof(); query->Next()) values.push_back(query->Fields(0).AsString());
    return values;
  }

  zanhost::TSampleResult Sample;
  std::unique_ptr<zanhost::TDatabase> Restricted;

 private:
  void Exec(const std::string& statement) {
    const auto query = FFull->GetQuery();
    query->SQL().SetText(statement);
    query->ExecSQL();
  }

  /// A server gets an account of its own, with the rights that the program prints.
  std::string RestrictedUrl(TEngine& engine) {
    static int made = 0;
    if (FFull->Server() == zanhost::TServerKind::Sqlite) return engine.Url();
    const std::string account = "zan_asker_" + std::to_string(++made);
    Exec("create user " + account + "@localhost identified by 'its own'");
    for (const std::string& grant : zanhost::RestrictedAccountGrants(*FFull, account + "@localhost"))
      Exec(grant);
    return zanrole::StringReplace(engine.Url(), "root@", account + ":its%20own@");
  }

  zanhost::TDatabase* FFull;
};

using TFunctionInputs = std::map<std::string, std::string>;

/// A system function, run for an operator on a database: its first output behind "= ", or the message of its
/// failure behind "! ".
inline std::string CallOn(zanhost::TDatabase& database, int operatorOID, const std::string& name,
                          const TFunctionInputs& inputs) {
  TEngineHost host(database);
  host.SystemInfo().LoginUserOID = operatorOID;
  std::size_t count = 0;
  const zanrole::TFuncClass* const classes = zanrole::ZanroleFuncClasses(&count);
  for (std::size_t i = 0; i < count; ++i) {
    const auto function = classes[i].Create();
    if (classes[i].Type != zanrole::TFuncType::System || function->FuncName() != name) continue;
    const auto info = function->NewFuncInfo();
    for (const auto& [input, value] : inputs) {
      if (zanrole::TFuncParam* const declared = info->InParams.find(input))
        declared->Value = value;
      else
        info->InParams.Add({zanrole::TFuncParamKind::None, input, "", value});
    }
    function->FuncInfo = info.get();
    try {
      function->Execute();
      return "= " + info->OutParams.begin()->Value;
    } catch (const zanrole::EZanError& fault) {
      return std::string("! ") + fault.what();
    }
  }
  return "no function";
}

}  // namespace zantest
