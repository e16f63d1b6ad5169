#pragma once

#include <QString>
#include <functional>
#include <string>

#include "ads/EDatabaseError.h"

namespace support {

/// What an exception of that kind says; "nothing was thrown" when there was none. Others go through.
template <typename TError = ads::EDatabaseError>
std::string MessageOf(const std::function<void()>& Body) {
  try {
    Body();
  } catch (const TError& Error) {
    return Error.what();
  }
  return "nothing was thrown";
}

}  // namespace support

/// A test goes on when the text holds the part, and shows the text else.
#define VERIFY_CONTAINS(Text, Part)                                        \
  do {                                                                     \
    const std::string Given = Text;                                        \
    QVERIFY2(QString::fromStdString(Given).contains(Part), Given.c_str()); \
  } while (false)
