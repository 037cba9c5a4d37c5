#pragma once

#include <mysql.h>

#include <memory>

namespace zanhost {

struct TMySqlCloser {
  void operator()(MYSQL* connection) const noexcept { mysql_close(connection); }
};
struct TMySqlStatementCloser {
  void operator()(MYSQL_STMT* statement) const noexcept { mysql_stmt_close(statement); }
};
struct TMySqlResultFreer {
  void operator()(MYSQL_RES* result) const noexcept { mysql_free_result(result); }
};

using TMySqlHandle = std::unique_ptr<MYSQL, TMySqlCloser>;
using TMySqlStatementHandle = std::unique_ptr<MYSQL_STMT, TMySqlStatementCloser>;
using TMySqlResultHandle = std::unique_ptr<MYSQL_RES, TMySqlResultFreer>;

}  // namespace zanhost
