#include "zulcommon/Text.h"

#include <QByteArray>
#include <QChar>
#include <QString>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "zulcommon/Ascii.h"

namespace zulcommon {

namespace {

constexpr char32_t FirstTwoByte = 0x80;
constexpr char32_t FirstThreeByte = 0x800;

// No character grows to more than three times its bytes: U+0390, of two, is the one with six.
constexpr std::size_t MaxGrowth = 3;

// One character in upper case, copied as a block of fixed size: faster than a copy of the exact length.
struct TUpper {
  std::array<char, 7> Bytes;
  std::uint8_t Length;
};

// Qt's upper-casing is Unicode's full one and knows no locale.
QByteArray UpperUtf8(char32_t Char) {
  return QString::fromUcs4(&Char, 1).toUpper().toUtf8();
}

// The upper case of every character that UTF-8 writes with two bytes.
class TTwoByteUppers {
 public:
  static const TTwoByteUppers& Instance() {
    static const TTwoByteUppers Table;
    return Table;
  }

  const TUpper& operator[](char32_t Char) const { return Uppers_[Char - FirstTwoByte]; }

 private:
  TTwoByteUppers() {
    for (char32_t Char = FirstTwoByte; Char < FirstThreeByte; ++Char) {
      TUpper& Upper = Uppers_[Char - FirstTwoByte];
      const QByteArray Utf8 = UpperUtf8(Char);
      Q_ASSERT(Utf8.size() <= std::ssize(Upper.Bytes));
      std::copy(Utf8.begin(), Utf8.end(), Upper.Bytes.begin());
      Upper.Length = static_cast<std::uint8_t>(Utf8.size());
    }
  }

  std::array<TUpper, FirstThreeByte - FirstTwoByte> Uppers_{};
};

// False for a character that upper-casing leaves alone for certain. Small and title-case letters may change although
// they have no single capital ("ﬁ" gives "FI").
bool MayChange(char32_t Char) {
  const QChar::Category Category = QChar::category(Char);
  return Category == QChar::Letter_Lowercase || Category == QChar::Letter_Titlecase || QChar::toUpper(Char) != Char;
}

std::uint8_t ByteAt(std::string_view Text, std::size_t Index) {
  return static_cast<std::uint8_t>(Text[Index]);
}

// How many bytes a character has by its first one; 0 when none starts so.
std::size_t LengthByLead(std::uint8_t Lead) {
  if (Lead < 0xC2 || Lead > 0xF4) return 0;
  if (Lead < 0xE0) return 2;
  return Lead < 0xF0 ? 3 : 4;
}

// The character of two to four bytes at the front of Text.
struct TDecoded {
  char32_t Char = 0;
  std::size_t Length = 0;  // 0 when these bytes are no valid UTF-8
};

TDecoded Decode(std::string_view Text) {
  constexpr std::array<char32_t, 5> Smallest = {0, 0, FirstTwoByte, FirstThreeByte, 0x10000};
  const std::size_t Length = LengthByLead(ByteAt(Text, 0));
  if (Length == 0 || Length > Text.size()) return {};

  char32_t Char = ByteAt(Text, 0) & (0x7Fu >> Length);
  for (std::size_t Index = 1; Index < Length; ++Index) {
    const std::uint8_t Byte = ByteAt(Text, Index);
    if ((Byte & 0xC0) != 0x80) return {};
    Char = (Char << 6) | (Byte & 0x3Fu);
  }
  const bool Surrogate = Char >= 0xD800 && Char <= 0xDFFF;
  if (Char < Smallest[Length] || Char > 0x10FFFF || Surrogate) return {};
  return {Char, Length};
}

char* Write(char* Out, std::string_view Bytes) {
  return std::copy(Bytes.begin(), Bytes.end(), Out);
}

char* WriteUpper(char* Out, const TDecoded& Decoded, std::string_view Bytes) {
  if (Decoded.Length == 2) {
    const TUpper& Upper = TTwoByteUppers::Instance()[Decoded.Char];
    std::memcpy(Out, Upper.Bytes.data(), Upper.Bytes.size());
    return Out + Upper.Length;
  }
  if (Decoded.Length < 2 || !MayChange(Decoded.Char)) return Write(Out, Bytes);
  const QByteArray Upper = UpperUtf8(Decoded.Char);
  return Write(Out, {Upper.constData(), static_cast<std::size_t>(Upper.size())});
}

// Upper-cases eight bytes of ASCII. Adding takes bit 7 of each byte that is not below a letter; bit 5 is what its upper
// case does not have.
std::uint64_t UpperBlock(std::uint64_t Block) {
  constexpr std::uint64_t Each = 0x0101010101010101;
  const std::uint64_t Low = Block & (Each * 0x7F);
  const std::uint64_t FromA = Low + Each * (0x80 - 'a');
  const std::uint64_t BehindZ = Low + Each * (0x80 - 'z' - 1);
  return Block ^ ((FromA & ~BehindZ & (Each * 0x80)) >> 2);
}

// Upper-cases Text as if it were ASCII and tells whether it was. A sort calls this for each row, so it goes by blocks.
bool WriteAsciiUpper(char* Out, std::string_view Text) {
  constexpr std::uint64_t HighBits = 0x8080808080808080;
  std::uint64_t Seen = 0;
  std::uint64_t Block = 0;
  for (; Text.size() >= sizeof Block; Text.remove_prefix(sizeof Block), Out += sizeof Block) {
    std::memcpy(&Block, Text.data(), sizeof Block);
    Seen |= Block;
    Block = UpperBlock(Block);
    std::memcpy(Out, &Block, sizeof Block);
  }
  for (const char Char : Text) {
    Seen |= static_cast<unsigned char>(Char);
    *Out++ = UpperAscii(Char);
  }
  return (Seen & HighBits) == 0;
}

// Needs room for MaxGrowth times the bytes of Text and one block; returns the end of what it wrote.
char* WriteFullUpper(char* Out, std::string_view Text) {
  while (!Text.empty()) {
    if (IsAscii(Text[0])) {
      *Out++ = UpperAscii(Text[0]);
      Text.remove_prefix(1);
      continue;
    }
    const TDecoded Decoded = Decode(Text);
    const std::size_t Length = std::max<std::size_t>(Decoded.Length, 1);
    Out = WriteUpper(Out, Decoded, Text.substr(0, Length));
    Text.remove_prefix(Length);
  }
  return Out;
}

}  // namespace

std::string UpperCase(std::string_view Text) {
  std::string Result;
  AppendUpperCase(Result, Text);
  return Result;
}

void AppendUpperCase(std::string& Out, std::string_view Text) {
  const std::size_t Start = Out.size();
  Out.resize(Start + Text.size());
  if (WriteAsciiUpper(Out.data() + Start, Text)) return;

  Out.resize(Start + MaxGrowth * Text.size() + sizeof(TUpper));
  const char* const End = WriteFullUpper(Out.data() + Start, Text);
  Out.resize(static_cast<std::size_t>(End - Out.data()));
}

bool IsUtf8(std::string_view Text) {
  while (!Text.empty()) {
    const std::size_t Length = IsAscii(Text[0]) ? 1 : Decode(Text).Length;
    if (Length == 0) return false;
    Text.remove_prefix(Length);
  }
  return true;
}

std::string_view Trim(std::string_view Text) {
  const auto IsBlank = [](char C) { return static_cast<unsigned char>(C) <= 0x20; };
  while (!Text.empty() && IsBlank(Text.front())) Text.remove_prefix(1);
  while (!Text.empty() && IsBlank(Text.back())) Text.remove_suffix(1);
  return Text;
}

bool SameText(std::string_view A, std::string_view B) {
  return std::equal(A.begin(), A.end(), B.begin(), B.end(),
                    [](char CharA, char CharB) { return UpperAscii(CharA) == UpperAscii(CharB); });
}

std::string FormatText(std::string_view Format, const std::vector<std::string>& Args) {
  std::string Text;
  auto Arg = Args.begin();
  while (!Format.empty()) {
    const bool Placeholder = Format.starts_with("%s") && Arg != Args.end();
    if (Placeholder) {
      Text += *Arg++;
    } else {
      Text += Format[0];
    }
    Format.remove_prefix(Placeholder || Format.starts_with("%%") ? 2 : 1);
  }
  return Text;
}

}  // namespace zulcommon
