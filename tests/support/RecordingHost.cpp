#include "tests/support/RecordingHost.h"

#include <algorithm>
#include <boost/json.hpp>
#include <cctype>

#include "tests/support/PlainTexts.h"
#include "tests/support/StatementCorpus.h"

namespace zantest {

using namespace zanrole;

std::string Squeeze(std::string_view text) {
  std::string squeezed;
  for (const char c : text) {
    const bool blank = static_cast<unsigned char>(c) <= ' ';
    if (!blank)
      squeezed += c;
    else if (!squeezed.empty() && squeezed.back() != ' ')
      squeezed += ' ';
  }
  if (!squeezed.empty() && squeezed.back() == ' ') squeezed.pop_back();
  return squeezed;
}

class TRecordingQuery final : public TZANQuery {
 public:
  TRecordingQuery(TRecordingHost& host, std::string database) : FHost(host), FDatabase(std::move(database)) {}
  void Open() override {
    FHost.Record(FDatabase, "Open", *this);
    FHost.FillAnswer(*this);
  }
  void ExecSQL() override { FHost.Record(FDatabase, "Exec", *this); }

 private:
  TRecordingHost& FHost;
  std::string FDatabase;
};

class TRecordingDialogs final : public TMessageDialogs {
 public:
  explicit TRecordingDialogs(TRecordingHost& host) : FHost(host) {}
  TMsgDlgBtn MessageBox(std::string_view title, std::string_view text, TMsgDlgType kind,
                        unsigned buttons) override {
    FHost.Messages.push_back({std::string(title), std::string(text), kind, buttons});
    if (FHost.FButtons.empty()) return (buttons & mbOK) != 0 || buttons == 0 ? mbOK : mbYes;
    const TMsgDlgBtn button = FHost.FButtons.front();
    FHost.FButtons.pop_front();
    return button;
  }

 private:
  TRecordingHost& FHost;
};

class TRecordingForms final : public TFormHost {
 public:
  explicit TRecordingForms(TRecordingHost& host) : FHost(host) {}
  void Show(TForm& form) override {
    FHost.ShownForms.push_back(form.ClassName());
    form.DoShow();
  }
  int ShowModal(TForm& form) override {
    FHost.ShownForms.push_back(form.ClassName());
    form.DoShow();
    if (FHost.FPersons.empty()) return mrCancel;
    const auto person = std::move(FHost.FPersons.front());
    FHost.FPersons.pop_front();
    const int result = person(form);
    form.DoHide();
    return result;
  }
  void Hide(TForm& form) override { form.DoHide(); }
  void Forget(TForm& /*form*/) noexcept override {}
  void ProcessMessages() override {}
  void SetBusy(bool busy) override { FHost.BusyCalls.push_back(busy); }

 private:
  TRecordingHost& FHost;
};

namespace {

class TPlainSystemInfo final : public TSystemInfo {
 public:
  explicit TPlainSystemInfo(std::vector<std::string>& drawn) : FDrawn(drawn) {}
  int NewDjLsh(std::string_view name) override {
    FDrawn.emplace_back(name);
    return static_cast<int>(FDrawn.size());
  }

 private:
  std::vector<std::string>& FDrawn;
};

class TBooleanFieldHelper final : public TDBFieldHelper {
 public:
  bool GetBoolean(const TField& field) override { return field.AsBoolean(); }
};

class TBooleanParamHelper final : public TDBParamHelper {
 public:
  explicit TBooleanParamHelper(TDialect dialect) : FDialect(dialect) {}
  void SetBoolean(TParam& param, bool value) override {
    if (FDialect == TDialect::SqlServer)
      param.AsBoolean(value);
    else
      param.AsInteger(value ? 1 : 0);
  }

 private:
  TDialect FDialect;
};

class TQuotingHelper final : public TDBObjectHelper {
 public:
  explicit TQuotingHelper(TDialect dialect) : FDialect(dialect) {}
  std::string QuoteName(std::string_view name) override {
    const std::string text(name);
    if (FDialect == TDialect::MySql) return "`" + text + "`";
    if (FDialect != TDialect::Oracle) return "[" + text + "]";
    std::string upper = text;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return "\"" + upper + "\"";
  }

 private:
  TDialect FDialect;
};

class TWideTextHelper final : public TDBTypesHelper {
 public:
  explicit TWideTextHelper(TDialect dialect) : FDialect(dialect) {}
  std::string WideTextType() override {
    if (FDialect == TDialect::MySql) return "char";
    return FDialect == TDialect::Oracle ? "nvarchar2" : "nvarchar";
  }

 private:
  TDialect FDialect;
};

class TConditionHelper final : public TDBFunctionsHelper {
 public:
  explicit TConditionHelper(TDialect dialect) : FDialect(dialect) {}
  std::string RowCountExpression() override {
    return FDialect == TDialect::Oracle ? "SQL%ROWCOUNT" : "@@ROWCOUNT";
  }
  std::string ConditionalStatement(std::string_view condition, std::string_view statement) override {
    const std::string then = FDialect == TDialect::Oracle ? " then " : " ";
    return "if " + std::string(condition) + then + std::string(statement);
  }
  std::string ConditionalEnd() override { return FDialect == TDialect::Oracle ? " end if;" : ""; }

 private:
  TDialect FDialect;
};

class TFirstRowHelper final : public TSelectSQLHelper {
 public:
  explicit TFirstRowHelper(TDialect dialect) : FDialect(dialect) {}
  std::string Build(const TZANSelectSQLEntity& entity) override {
    const bool top = FDialect == TDialect::SqlServer;
    std::string text = (top ? "select top 1 " : "select ") + entity.Fields + " from " + entity.Table;
    if (!entity.Where.empty()) text += " where " + entity.Where;
    if (!entity.OrderBy.empty()) text += " order by " + entity.OrderBy;
    if (FDialect == TDialect::MySql) text += " limit 1";
    if (FDialect == TDialect::Oracle) text = "select * from (" + text + ") where rownum = 1";
    return text;
  }

 private:
  TDialect FDialect;
};

class TRecordingDatabases final : public TDatabaseServices {
 public:
  TRecordingDatabases(TRecordingHost& host, TDialect dialect) : FHost(host), FDialect(dialect) {}
  TDialect Dialect() const override { return FDialect; }
  std::string ServerType() const override {
    if (FDialect == TDialect::MySql) return "mysql";
    return FDialect == TDialect::Oracle ? "oracle" : "mssql";
  }
  std::unique_ptr<TZANQuery> GetQuery() override { return std::make_unique<TRecordingQuery>(FHost, "data"); }
  std::unique_ptr<TZANQuery> GetSysQuery() override {
    return std::make_unique<TRecordingQuery>(FHost, "system");
  }
  std::unique_ptr<TDBFieldHelper> GetDBFieldHelper() override {
    return std::make_unique<TBooleanFieldHelper>();
  }
  std::unique_ptr<TDBParamHelper> GetDBParamHelper() override {
    return std::make_unique<TBooleanParamHelper>(FDialect);
  }
  std::unique_ptr<TDBObjectHelper> GetDBObjectHelper() override {
    return std::make_unique<TQuotingHelper>(FDialect);
  }
  std::unique_ptr<TDBTypesHelper> GetDBTypesHelper() override {
    return std::make_unique<TWideTextHelper>(FDialect);
  }
  std::unique_ptr<TDBFunctionsHelper> GetDBFunctionsHelper() override {
    return std::make_unique<TConditionHelper>(FDialect);
  }
  std::unique_ptr<TSelectSQLHelper> GetSelectSQLHelper() override {
    return std::make_unique<TFirstRowHelper>(FDialect);
  }

 private:
  TRecordingHost& FHost;
  TDialect FDialect;
};

class TRecordingFuncManager final : public TFuncManager {
 public:
  explicit TRecordingFuncManager(TRecordingHost& host) : FHost(host) {}
  const TFuncInfo* FindFuncInfo(std::string_view name, TFuncType) override {
    return Knows(name) ? &FInfo : nullptr;
  }
  bool RunFuncName(std::string_view name, int) override {
    FHost.RunFunctions.emplace_back(name);
    return Knows(name);
  }
  bool RunFunc(TFuncInfo&, TZanParser*, int) override {
    FHost.RunFunctions.emplace_back("(by description)");
    return true;
  }

 private:
  bool Knows(std::string_view name) const {
    const auto& known = FHost.KnownFunctions;
    return std::find(known.begin(), known.end(), name) != known.end();
  }
  TRecordingHost& FHost;
  TFuncInfo FInfo;
};

class TRecordingParser final : public TZanParser {
 public:
  void ClearContexts() override {}
};

class TRecordingWebServices final : public TWebServices {
 public:
  explicit TRecordingWebServices(TRecordingHost& host) : FHost(host) {}
  std::string ServiceAddress() override { return FHost.WebServiceAddress; }
  std::string Call(const TSoapCall& call) override {
    FHost.WebCalls.push_back(call);
    return {};
  }

 private:
  TRecordingHost& FHost;
};

class TReadableCipher final : public TCipher {
 public:
  std::string Encrypt(std::string_view plain) override { return "enc(" + std::string(plain) + ")"; }
  std::string Decrypt(std::string_view cipher) override {
    if (cipher.substr(0, 4) != "enc(" || cipher.back() != ')') throw ECipherError("not enciphered here");
    return std::string(cipher.substr(4, cipher.size() - 5));
  }
};

}  // namespace

struct TRecordingHost::TParts {
  TParts(TRecordingHost& host, TDialect dialect)
      : SystemInfo(host.NumbersDrawn),
        Databases(host, dialect),
        Dialogs(host),
        Forms(host),
        FuncManager(host),
        WebServices(host) {}
  TPlainSystemInfo SystemInfo;
  TRecordingDatabases Databases;
  TPlainTexts Resources;
  TRecordingDialogs Dialogs;
  TRecordingForms Forms;
  TRecordingFuncManager FuncManager;
  TRecordingParser Parser;
  TRecordingWebServices WebServices;
};

TRecordingHost::TRecordingHost(TDialect dialect)
    : FParts(std::make_unique<TParts>(*this, dialect)), FSession(std::make_unique<TSession>(*this)) {
  FParts->SystemInfo.LoginUserOID = 12;
  FParts->SystemInfo.LoginUserName = "操作员";
  FParts->SystemInfo.LoginUserID = "operator";
  FSessionBefore = TSession::MakeCurrent(FSession.get());
}

TRecordingHost::~TRecordingHost() {
  FSession.reset();
  TSession::MakeCurrent(FSessionBefore);
}

TSystemInfo& TRecordingHost::SystemInfo() { return FParts->SystemInfo; }
TDatabaseServices& TRecordingHost::Databases() { return FParts->Databases; }
TResourceStrings& TRecordingHost::Resources() { return FParts->Resources; }
TMessageDialogs& TRecordingHost::Dialogs() { return FParts->Dialogs; }
TFormHost& TRecordingHost::Forms() { return FParts->Forms; }
TFuncManager& TRecordingHost::FuncManager() { return FParts->FuncManager; }
TZanParser& TRecordingHost::VeshParser() { return FParts->Parser; }
TWebServices& TRecordingHost::WebServices() { return FParts->WebServices; }

TRecordingHost::TAnswer TRecordingHost::MakeAnswer(std::string_view part, std::vector<std::string> columns,
                                                   const std::vector<std::vector<TZanValue>>& rows) {
  TAnswer answer{Squeeze(part), std::move(columns), {}};
  for (const auto& row : rows)
    for (const TZanValue& value : row) answer.Cells.Add(value);
  return answer;
}

void TRecordingHost::Answer(std::string_view part, std::vector<std::string> columns,
                            std::vector<std::vector<TZanValue>> rows) {
  FAnswers.push_back(MakeAnswer(part, std::move(columns), rows));
}

void TRecordingHost::AlwaysAnswer(std::string_view part, std::vector<std::string> columns,
                                  std::vector<std::vector<TZanValue>> rows) {
  FStandingAnswers.push_back(MakeAnswer(part, std::move(columns), rows));
}

void TRecordingHost::Record(std::string database, std::string kind, TZANQuery& query) {
  TRecordedStatement statement{std::move(database), std::move(kind), query.SQL().Text(), {}};
  KeepInCorpus(FParts->Databases.Dialect(), statement.Database, statement.Text);
  for (const TParam& param : query.Params()) statement.Params.emplace_back(param.Name(), param.Value());
  Statements.push_back(std::move(statement));
  if (FFailAt == static_cast<int>(Statements.size()))
    throw EDatabaseError("the statement was made to fail", Statements.back().Text);
}

void TRecordingHost::FillAnswer(TZANQuery& query) {
  const std::string text = Squeeze(query.SQL().Text());
  const auto fits = [&](const TAnswer& answer) { return text.find(answer.Part) != std::string::npos; };
  const auto once = std::find_if(FAnswers.begin(), FAnswers.end(), fits);
  if (once != FAnswers.end()) {
    query.DataSet().Load(once->Columns, std::move(once->Cells));
    FAnswers.erase(once);
    return;
  }
  const auto standing = std::find_if(FStandingAnswers.begin(), FStandingAnswers.end(), fits);
  if (standing != FStandingAnswers.end())
    query.DataSet().Load(standing->Columns, standing->Cells);
  else
    query.DataSet().Load({}, {});
}

std::vector<std::string> TRecordingHost::Texts() const {
  std::vector<std::string> texts;
  for (const TRecordedStatement& statement : Statements) texts.push_back(Squeeze(statement.Text));
  return texts;
}

std::vector<std::string> TRecordingHost::MessageTexts() const {
  std::vector<std::string> texts;
  for (const TRecordedMessage& message : Messages) texts.push_back(message.Text);
  return texts;
}

TRecordingServices::TRecordingServices() : FCipher(std::make_unique<TReadableCipher>()) {
  SetHostServices(this);
}
TRecordingServices::~TRecordingServices() { SetHostServices(nullptr); }
TCipher& TRecordingServices::Cipher() { return *FCipher; }
std::string TRecordingServices::StrToMIME64(std::string_view bytes) {
  return "b64(" + std::string(bytes) + ")";
}
std::string TRecordingServices::MIME64ToStr(std::string_view text) {
  if (text.substr(0, 4) != "b64(" || text.back() != ')') throw EConvertError("no base64");
  return std::string(text.substr(4, text.size() - 5));
}
std::optional<std::vector<std::pair<std::string, std::string>>> TRecordingServices::ParseJsonObject(
    std::string_view text) {
  boost::system::error_code error;
  const boost::json::value value = boost::json::parse({text.data(), text.size()}, error);
  if (error || !value.is_object()) return std::nullopt;
  std::vector<std::pair<std::string, std::string>> members;
  for (const auto& member : value.get_object()) {
    const boost::json::value& inner = member.value();
    members.emplace_back(member.key(),
                         inner.is_string() ? std::string(inner.get_string()) : boost::json::serialize(inner));
  }
  return members;
}

}  // namespace zantest
