#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What libFuzzer calls with each input; ends the program when something is wrong.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size);

/// The inputs to start from, without libFuzzer.
std::vector<std::string> Corpus();
