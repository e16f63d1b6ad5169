#include "zulcommon/EZULException.h"

#include "zulcommon/Text.h"

namespace zulcommon {

EZULException::EZULException(const std::string& Message, std::int32_t Code)
    : std::runtime_error(Message), Code_(Code) {}

EZULException::EZULException(const std::string& Message, const std::vector<std::string>& Args, std::int32_t Code)
    : std::runtime_error(FormatText(Message, Args)), Code_(Code) {}

// Here and not in the header, so that every library that throws or catches it shares one type information.
EZULException::~EZULException() = default;

}  // namespace zulcommon
