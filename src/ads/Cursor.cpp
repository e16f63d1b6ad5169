#include "ads/Cursor.h"

namespace ads {

TCursor::~TCursor() = default;

}  // namespace ads
