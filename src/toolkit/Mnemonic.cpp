#include "toolkit/Mnemonic.h"

namespace toolkit {

QString WithoutMnemonic(const QString& Caption) {
  QString Text;
  for (qsizetype Index = 0; Index < Caption.size(); ++Index) {
    if (Caption[Index] == u'&' && ++Index == Caption.size()) break;
    Text += Caption[Index];
  }
  return Text;
}

}  // namespace toolkit
