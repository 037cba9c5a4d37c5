#pragma once

#include "Frame/Host/Host.h"
#include "host/platform/Accounts.h"
#include "host/platform/Resources.h"
#include "host/platform/Settings.h"
#include "host/query/Database.h"
#include "host/worker/FuncManager.h"
#include "host/worker/WebServices.h"

namespace zanhost {

/// Who is logged in.
struct TLogin {
  /// -1 for the designer.
  int OID = -1;
  std::string Login;
  std::string Name;
  bool IsSuperUser = false;
  bool IsBuilder = false;
};

TLogin LoginOf(const TAccount& account);
/// The login of a user's row. Raises EZanError when there is no such user.
TLogin LoginOf(zanrole::TDatabaseServices& database, const std::string& user);
TLogin BuilderLogin();

/// What a session is made of. Everything referred to outlives the session.
struct TSessionParts {
  TDatabase& Database;
  TResources& Resources;
  const TSettings& Settings;
  const TModule& Module;
  zanrole::TMessageDialogs& Dialogs;
  zanrole::TFormHost& Forms;
};

/// The host's side of one login.
class THostSessionImpl final : public zanrole::THostSession {
 public:
  THostSessionImpl(const TSessionParts& parts, const TLogin& login);

  zanrole::TSystemInfo& SystemInfo() override { return FSystemInfo; }
  bool IsBuilder() override { return FIsBuilder; }
  zanrole::TDatabaseServices& Databases() override { return FParts.Database; }
  zanrole::TResourceStrings& Resources() override { return FParts.Resources; }
  zanrole::TMessageDialogs& Dialogs() override { return FParts.Dialogs; }
  zanrole::TFormHost& Forms() override { return FParts.Forms; }
  THostFuncManager& FuncManager() override { return FFuncManager; }
  /// Null: this host is no foreign one.
  zanrole::TRunHostFunction* RunHostFunction() override { return nullptr; }
  zanrole::TZanParser& VeshParser() override { return FParser; }
  zanrole::TWebServices& WebServices() override { return FWebServices; }

 private:
  class TLoginRecord final : public zanrole::TSystemInfo {
   public:
    explicit TLoginRecord(TDatabase& database) : FDatabase(&database) {}
    int NewDjLsh(std::string_view name) override;

   private:
    TDatabase* FDatabase;
  };

  /// This host evaluates no expressions of its own, so no contexts gather.
  class TParser final : public zanrole::TZanParser {
   public:
    void ClearContexts() override {}
  };

  TSessionParts FParts;
  bool FIsBuilder;
  TLoginRecord FSystemInfo;
  THostFuncManager FFuncManager;
  TParser FParser;
  THostWebServices FWebServices;
};

}  // namespace zanhost
