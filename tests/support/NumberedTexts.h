#pragma once

#include <QTemporaryFile>
#include <QtGlobal>

#include "zulcommon/StringTable.h"

namespace support {

/// While it lives, the text of every string number tells the number: "T97".
class TNumberedTexts {
 public:
  TNumberedTexts() {
    if (!File_.open()) qFatal("The texts cannot be written.");
    for (int Number = 1; Number <= 6100; ++Number) File_.write(QStringLiteral("%1\tT%1\n").arg(Number).toUtf8());
    File_.close();
    zulcommon::LoadStringTable(File_.fileName().toStdString());
  }
  ~TNumberedTexts() { zulcommon::ResetStringTable(); }
  TNumberedTexts(const TNumberedTexts&) = delete;
  TNumberedTexts& operator=(const TNumberedTexts&) = delete;

 private:
  QTemporaryFile File_;
};

}  // namespace support
