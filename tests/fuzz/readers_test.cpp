#include "fuzz/readers.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

namespace skerrow {
namespace {

constexpr int kInputsPerReader = 2000;

void PutSingle(std::string& input, float value) {
  const auto word = std::bit_cast<std::uint32_t>(value);
  for (int byte = 0; byte < 4; ++byte) input.push_back(static_cast<char>(word >> 8 * byte));
}

// Up to six records of the reader's shape. Most singles are values that the checks let through, so
// that what lies behind is reached too; some are any bits. Half of the inputs are cut anywhere.
std::string RandomInput(const FuzzReader& reader, std::mt19937& random) {
  std::uniform_real_distribution<float> plausible(-1.0F, 85.0F);
  std::string input;
  const auto any_byte = [&] { return static_cast<char>(random()); };
  const auto bad_single = random() % 60 + 1;
  for (auto records = random() % 7; records > 0; --records) {
    for (std::size_t i = 0; i < reader.text; ++i) {
      input.push_back(random() % 3 == 0 ? any_byte() : ' ');
    }
    for (std::size_t i = 0; i < reader.singles; ++i) {
      const bool bad = random() % bad_single == 0;
      PutSingle(input, bad ? std::bit_cast<float>(static_cast<std::uint32_t>(random()))
                           : plausible(random));
    }
    for (std::size_t i = 0; i < reader.rest; ++i) input.push_back(any_byte());
  }
  if (random() % 2 == 0) input.resize(random() % (input.size() + 1));
  return input;
}

class Readers : public ::testing::TestWithParam<FuzzReader> {};

TEST_P(Readers, SurviveRandomBytes) {
  const unsigned seed = 20260000U + static_cast<unsigned>(GetParam().text);
  std::cout << "seed " << seed << std::endl;  // shown before a fault aborts the program
  std::mt19937 random(seed);
  for (int i = 0; i < kInputsPerReader; ++i) GetParam().feed(RandomInput(GetParam(), random));
}

INSTANTIATE_TEST_SUITE_P(All, Readers, ::testing::ValuesIn(FuzzReaders()),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace skerrow
