#include "ads/Cursor.h"

#include "ads/EDatabaseError.h"

namespace ads {

TCursor::~TCursor() = default;

void RaiseConnectionLost(const std::string& Message) {
  throw EConnectionLost("The connection to the database is lost; it must be opened again before lists can be read.\n" +
                        Message);
}

}  // namespace ads
