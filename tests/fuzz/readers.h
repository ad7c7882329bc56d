#pragma once

#include <string>
#include <vector>

// Every reader of record and settings files of the engine, fed with arbitrary bytes through a real
// file. Each aborts where the reader keeps something that it should refuse.
namespace skerrow {

struct FuzzReader {
  const char* name;
  void (*feed)(const std::string& bytes);
  // The shape of its records: bytes of text, then singles, then other bytes.
  std::size_t text;
  std::size_t singles;
  std::size_t rest;
};

// All readers; the fuzz targets take them by their place here.
const std::vector<FuzzReader>& FuzzReaders();

}  // namespace skerrow
