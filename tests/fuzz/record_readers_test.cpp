#include "record_readers.h"

#include <bit>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <vector>

namespace {

constexpr int kInputsPerReader = 2000;

// The shape of a reader's records: text, then singles, then the rest.
struct Shape {
  std::size_t text;
  std::size_t singles;
  std::size_t rest;
};
constexpr Shape kShapes[kReaderCount] = {{35, 2, 0}, {35, 3, 0},     {0, 14, 8},
                                         {80, 5, 2}, {2432, 0, 524}, {24, 0, 0}};

void PutSingle(std::vector<std::uint8_t>& input, float value) {
  const auto word = std::bit_cast<std::uint32_t>(value);
  for (int byte = 0; byte < 4; ++byte) input.push_back(static_cast<std::uint8_t>(word >> 8 * byte));
}

// Up to six records of the reader's shape. Most singles are values that the checks let through, so
// that what lies behind is reached too; some are any bits. Half of the inputs are cut anywhere.
std::vector<std::uint8_t> RandomInput(int reader, std::mt19937& random) {
  const Shape& shape = kShapes[reader];
  std::uniform_real_distribution<float> plausible(-1.0F, 85.0F);
  std::vector<std::uint8_t> input = {static_cast<std::uint8_t>(reader)};
  const auto any_byte = [&] { return static_cast<std::uint8_t>(random()); };
  const auto bad_single = random() % 60 + 1;
  for (auto records = random() % 7; records > 0; --records) {
    for (std::size_t i = 0; i < shape.text; ++i) {
      input.push_back(random() % 3 == 0 ? any_byte() : std::uint8_t{0x20});
    }
    for (std::size_t i = 0; i < shape.singles; ++i) {
      const bool bad = random() % bad_single == 0;
      PutSingle(input, bad ? std::bit_cast<float>(static_cast<std::uint32_t>(random()))
                           : plausible(random));
    }
    for (std::size_t i = 0; i < shape.rest; ++i) input.push_back(any_byte());
  }
  if (random() % 2 == 0) input.resize(1 + random() % input.size());
  return input;
}

class RecordReaders : public ::testing::TestWithParam<int> {};

TEST_P(RecordReaders, SurviveRandomBytes) {
  const unsigned seed = 20260000U + static_cast<unsigned>(GetParam());
  std::cout << "seed " << seed << std::endl;  // shown before a fault aborts the program
  std::mt19937 random(seed);
  for (int i = 0; i < kInputsPerReader; ++i) {
    const std::vector<std::uint8_t> input = RandomInput(GetParam(), random);
    ASSERT_EQ(LLVMFuzzerTestOneInput(input.data(), input.size()), 0) << "input " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(All, RecordReaders, ::testing::Range(0, kReaderCount));

}  // namespace
