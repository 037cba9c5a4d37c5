// One out-of-line destructor for each type that crosses the boundary: it anchors the type's table of virtual
// operations and its type information, so that both sides agree on them.

#include "Frame/Host/Host.h"
#include "Frame/Host/Un_glbasefunc.h"

namespace zanrole {

EZanError::~EZanError() = default;
EConvertError::~EConvertError() = default;
EAssertionFailed::~EAssertionFailed() = default;
EDatabaseError::~EDatabaseError() = default;
ECipherError::~ECipherError() = default;

TZANQuery::~TZANQuery() = default;
TDBFieldHelper::~TDBFieldHelper() = default;
TDBParamHelper::~TDBParamHelper() = default;
TDBObjectHelper::~TDBObjectHelper() = default;
TDBTypesHelper::~TDBTypesHelper() = default;
TDBFunctionsHelper::~TDBFunctionsHelper() = default;
TSelectSQLHelper::~TSelectSQLHelper() = default;
TDatabaseServices::~TDatabaseServices() = default;

TVeshDj::~TVeshDj() = default;
TContexts::~TContexts() = default;
TBaseFunc::~TBaseFunc() = default;
TMenuBaseFunc::~TMenuBaseFunc() = default;
TSysBaseFunc::~TSysBaseFunc() = default;
TGLBaseFunc::~TGLBaseFunc() = default;
TZanParser::~TZanParser() = default;
TFuncManager::~TFuncManager() = default;
TRunHostFunction::~TRunHostFunction() = default;

TSystemInfo::~TSystemInfo() = default;
TResourceStrings::~TResourceStrings() = default;
void TResourceStrings::res_SetControlFont(TComponent& /*control*/) {}
TMessageDialogs::~TMessageDialogs() = default;
TCipher::~TCipher() = default;
TWebServices::~TWebServices() = default;
TFormHost::~TFormHost() = default;
THostServices::~THostServices() = default;
THostSession::~THostSession() = default;

}  // namespace zanrole
