#include "sample/tables/Codes.h"

#include <stdexcept>

namespace sample {

std::string LetterCode(char Letter, std::int64_t Number) {
  std::int64_t Room = 100'000;
  for (std::size_t Letters = 0; Letters <= 5; ++Letters) {
    if (Number < Room) {
      std::string Result(6, Letter);
      for (std::size_t Place = 5; Place > 0; --Place) {
        const std::int64_t Base = Place > Letters ? 10 : 26;
        Result[Place] = static_cast<char>((Place > Letters ? '0' : 'A') + Number % Base);
        Number /= Base;
      }
      return Result;
    }
    Number -= Room;
    Room = Room / 10 * 26;
  }
  throw std::runtime_error("There are too many rows for codes of six characters.");
}

std::string Padded(std::int64_t Number, std::size_t Digits) {
  const std::string Plain = std::to_string(Number);
  return Plain.size() >= Digits ? Plain : std::string(Digits - Plain.size(), '0') + Plain;
}

}  // namespace sample
