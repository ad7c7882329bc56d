#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/readers.h"

// The fuzz target of one reader, SKERROW_FUZZ_READER.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const skerrow::FuzzReader& reader = skerrow::FuzzReaders().at(SKERROW_FUZZ_READER);
  reader.feed(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
