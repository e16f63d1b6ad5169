#include "ServerLists.h"

namespace {

[[maybe_unused]] const bool IsRegistered = bench::RegisterServerLists(bench::MariaDBKind());

}  // namespace
