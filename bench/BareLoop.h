#pragma once

#include "Connection.h"

#include <string>

namespace hearthbook::bench {

/// Steps through a statement of SQLite's own dialect on the connection: every column is read and
/// none kept. What a record set is measured against.
void readAll(const Connection& connection, const std::string& select);

} // namespace hearthbook::bench
