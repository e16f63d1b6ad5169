#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace sample {

/// The parts of the business that keep books of their own.
struct TEntity {
  std::string_view Code;
  std::string_view Name;
};
inline constexpr auto Entities = std::to_array<TEntity>({
    {"MAIN", "Sunbird Trade Supplies Pty Ltd"},
    {"NRTH", "Sunbird North"},
    {"WEST", "Sunbird West – O'Hara St"},
    {"CAFÉ", "Showroom Café"},
});

/// The entity of a customer, by the customer's number from 1: most are the main one's, a few have none.
inline std::optional<std::string_view> EntityOfCustomer(std::int64_t Number) {
  if (Number % 97 == 0) {
    return std::nullopt;
  }
  const std::int64_t Share = Number % 10;
  return Entities[Share < 6 ? 0 : Share < 8 ? 1 : Share < 9 ? 2 : 3].Code;
}

}  // namespace sample
