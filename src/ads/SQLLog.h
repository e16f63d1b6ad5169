#pragma once

#include <memory>
#include <string_view>

namespace ads {

class TCursor;

// The logging category `zul.sql`: what is sent to the server, and how it ends. Silent unless the host asks for it, and
// costs one question a statement then. A message holds a statement, a server's words about its failure, times and
// numbers of rows, and no value of a row.

/// The cursor itself, or, when the category is on, one that tells of the statements that are begun with it.
std::unique_ptr<TCursor> Logged(std::unique_ptr<TCursor> Cursor);

/// Tells of a statement that the library sends on its own account, such as for the transaction of a list.
void LogOwn(std::string_view Sql);

}  // namespace ads
