#pragma once

#include <cstddef>
#include <cstdint>

// Feeds arbitrary bytes to every reader of record and settings files of the core, the routes and
// the charts, through real files. Aborts where a reader keeps something that it should refuse. The
// first byte chooses the reader.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// The number of readers.
inline constexpr int kReaderCount = 6;
