#pragma once

#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <memory>

#include "host/gateway/Coroutines.h"
#include "host/gateway/Session.h"
#include "host/gateway/Stream.h"

namespace zanhost {

/// Serves one page as a WebSocket until it is closed. The request was checked: it comes from a page of this
/// server and belongs to the session.
TTask<> RunWebSocket(TStream stream, beast::http::request<beast::http::empty_body> upgrade,
                     std::shared_ptr<TLoginSession> session);

}  // namespace zanhost
