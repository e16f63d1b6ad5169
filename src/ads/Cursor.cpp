#include "ads/Cursor.h"

namespace ads {

EDisturbed::EDisturbed()
    : EDatabaseError("The connection was used for something else while the rows of a list were read from it.") {}
EDisturbed::~EDisturbed() = default;

TCursor::~TCursor() = default;

bool TCursor::Next() {
  bool OnRow = false;
  GoOn(Forever, [&OnRow] {
    OnRow = true;
    return false;
  });
  return OnRow;
}

void RaiseConnectionLost(const std::string& Message) {
  throw EConnectionLost("The connection to the database is lost; it must be opened again before lists can be read.\n" +
                        Message);
}

}  // namespace ads
