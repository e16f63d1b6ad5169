#pragma once

// The case of ASCII letters, the same in every locale and without a look-up.

namespace zulcommon {

constexpr bool IsAscii(char C) {
  return static_cast<unsigned char>(C) < 0x80;
}

/// Without a branch, so that a loop over it becomes vector code.
constexpr char UpperAscii(char C) {
  const auto Byte = static_cast<unsigned char>(C);
  const bool Lower = static_cast<unsigned char>(Byte - 'a') < 26;
  return static_cast<char>(Byte - (Lower ? 0x20 : 0));
}

constexpr char LowerAscii(char C) {
  return C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C;
}

}  // namespace zulcommon
