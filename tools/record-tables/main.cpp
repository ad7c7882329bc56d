#include <cstdio>

#include "tools/record-tables/record_tables.h"

// Prints the record tables of docs/FILES.md.
int main() {
  const std::string text = skerrow::AllRecordTables();
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}
