#include "support/Screens.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace support {

TScreens::TScreens(std::initializer_list<QRect> Places) {
  QJsonArray Screens;
  for (const QRect& Place : Places) {
    Screens.append(QJsonObject{{"name", QString::number(Screens.size())},
                               {"x", Place.x()},
                               {"y", Place.y()},
                               {"width", Place.width()},
                               {"height", Place.height()},
                               {"logicalDpi", 96},
                               {"logicalBaseDpi", 96},
                               {"dpr", 1}});
  }
  QFile File(Folder_.filePath("screens.json"));
  if (!File.open(QIODevice::WriteOnly)) qFatal("The screens cannot be described.");
  File.write(QJsonDocument(QJsonObject{{"screens", Screens}}).toJson());
  File.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + File.fileName().toUtf8());
}

}  // namespace support
