#pragma once

/// Default visibility: the symbol may be looked up by, or its type shared with, the other side of the
/// boundary between host and module. Everything else of the module is hidden.
#define ZAN_EXPORT __attribute__((visibility("default")))
