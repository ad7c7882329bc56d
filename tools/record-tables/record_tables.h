#pragma once

#include <string>

namespace skerrow {

// Every record of the program as Markdown, made from the tables that read and write them.
std::string AllRecordTables();

}  // namespace skerrow
