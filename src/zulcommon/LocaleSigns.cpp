#include "zulcommon/LocaleSigns.h"

#include <QLocale>
#include <QString>

#include "zulcommon/TypedValues.h"

namespace zulcommon {

namespace {

// Some writings have their digits beyond the sixteen bits of a QChar.
char32_t LocaleZero() {
  return static_cast<char32_t>(QLocale().zeroDigit().toUcs4().value(0, U'0'));
}

bool IsAscii(std::string_view Text) {
  for (const char Letter : Text) {
    if (static_cast<unsigned char>(Letter) >= 0x80) return false;
  }
  return true;
}

// Each digit that counts from the one zero as that of the other.
std::string Moved(std::string_view Text, char32_t From, char32_t To) {
  std::u32string Letters = QString::fromUtf8(Text.data(), static_cast<qsizetype>(Text.size())).toStdU32String();
  for (char32_t& Letter : Letters) {
    if (Letter >= From && Letter - From <= 9) Letter = To + (Letter - From);
  }
  return QString::fromStdU32String(Letters).toStdString();
}

void Replace(std::string& Text, const QString& Sign, char Plain) {
  const std::string From = Sign.toStdString();
  if (From.empty()) return;
  for (std::size_t At = Text.find(From); At != std::string::npos; At = Text.find(From, At + 1)) {
    Text.replace(At, From.size(), 1, Plain);
  }
}

}  // namespace

std::string WithLocaleDigits(std::string_view Text) {
  const char32_t Zero = LocaleZero();
  return Zero == U'0' ? std::string(Text) : Moved(Text, U'0', Zero);
}

std::string WithLocaleSigns(std::string_view Number) {
  const QLocale Locale;
  std::string Text;
  for (const char Letter : WithLocaleDigits(Number)) {
    if (Letter == '.') {
      Text += Locale.decimalPoint().toStdString();
    } else if (Letter == '-') {
      Text += Locale.negativeSign().toStdString();
    } else {
      Text += Letter;
    }
  }
  return Text;
}

std::string WithPlainDigits(std::string_view Text) {
  const char32_t Zero = LocaleZero();
  return Zero == U'0' || IsAscii(Text) ? std::string(Text) : Moved(Text, Zero, U'0');
}

std::string PlainNumber(std::string_view Typed) {
  const QLocale Locale;
  std::string Text = WithPlainDigits(Typed);
  Replace(Text, Locale.negativeSign(), '-');
  Replace(Text, Locale.positiveSign(), '+');
  Replace(Text, Locale.decimalPoint(), '.');
  return Text;
}

}  // namespace zulcommon
