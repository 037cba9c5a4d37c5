#pragma once

#include "Frame/Host/Host.h"
#include "SqliteQuery.h"

// A host that asks and shows nothing: what its questions never need is refused in words.

using TText = std::string_view;
[[noreturn]] inline void Refuse(const std::string& what) { throw EZanError("This host has no " + what); }

/// Shared by all logins.
struct TServices final : THostServices, TCipher {
  int ContractVersion() const override { return kContractVersion; }
  TCipher& Cipher() override { return *this; }
  std::string Encrypt(TText) override { Refuse("cipher"); }
  std::string Decrypt(TText) override { Refuse("cipher"); }
  std::string StrToMIME64(TText) override { Refuse("base64"); }
  std::string MIME64ToStr(TText) override { Refuse("base64"); }
  std::optional<std::vector<std::pair<std::string, std::string>>> ParseJsonObject(TText) override {
    Refuse("JSON");
  }
};

/// Of the texts that the module knows, those for MySQL are nearest to what SQLite reads.
struct TDatabase final : TDatabaseServices {
  explicit TDatabase(sqlite3* database) : Handle(database) {}
  TDialect Dialect() const override { return TDialect::MySql; }
  std::string ServerType() const override { return "mysql"; }
  std::unique_ptr<TZANQuery> GetQuery() override { return std::make_unique<TSqliteQuery>(Handle); }
  std::unique_ptr<TZANQuery> GetSysQuery() override { return GetQuery(); }
  std::unique_ptr<TDBFieldHelper> GetDBFieldHelper() override { Refuse("Boolean columns"); }
  std::unique_ptr<TDBParamHelper> GetDBParamHelper() override { Refuse("Boolean parameters"); }
  std::unique_ptr<TDBObjectHelper> GetDBObjectHelper() override { Refuse("reserved names"); }
  std::unique_ptr<TDBTypesHelper> GetDBTypesHelper() override { Refuse("names of types"); }
  std::unique_ptr<TDBFunctionsHelper> GetDBFunctionsHelper() override { Refuse("conditional statements"); }
  std::unique_ptr<TSelectSQLHelper> GetSelectSQLHelper() override { Refuse("select of a first row"); }
  sqlite3* Handle;
};

/// Texts stay as they are, in Chinese; nobody looks at them.
struct TScreen final : TResourceStrings, TFormHost, TMessageDialogs {
  std::string resD(TText key, TText, TText) override { return std::string(key); }
  std::string res(TText key, TText) override { return std::string(key); }
  std::string resS(TText key) override { return std::string(key); }
  void resDLLDownload(TText, TText) override {}
  void Show(TForm&) override { Refuse("screen"); }
  int ShowModal(TForm&) override { Refuse("screen"); }
  void Hide(TForm&) override {}
  void Forget(TForm&) noexcept override {}
  void ProcessMessages() override {}
  void SetBusy(bool) override {}
  TMsgDlgBtn MessageBox(TText, TText, TMsgDlgType, unsigned) override { Refuse("screen"); }
};

/// One login, and the record of it. The database outlives it.
struct TLogin final : THostSession, TSystemInfo, TFuncManager, TZanParser, TWebServices {
  explicit TLogin(sqlite3* database) : Database(database) {}
  TSystemInfo& SystemInfo() override { return *this; }
  bool IsBuilder() override { return false; }
  TDatabaseServices& Databases() override { return Database; }
  TResourceStrings& Resources() override { return Screen; }
  TMessageDialogs& Dialogs() override { return Screen; }
  TFormHost& Forms() override { return Screen; }
  TFuncManager& FuncManager() override { return *this; }
  TRunHostFunction* RunHostFunction() override { return nullptr; }
  TZanParser& VeshParser() override { return *this; }
  TWebServices& WebServices() override { return *this; }
  int NewDjLsh(TText) override { Refuse("numbering"); }
  const TFuncInfo* FindFuncInfo(TText, TFuncType) override { return nullptr; }
  bool RunFuncName(TText, int) override { return false; }
  bool RunFunc(TFuncInfo&, TZanParser*, int) override { return false; }
  void ClearContexts() override {}
  std::string ServiceAddress() override { return {}; }
  std::string Call(const TSoapCall&) override { Refuse("web services"); }
  TDatabase Database;
  TScreen Screen;
};
