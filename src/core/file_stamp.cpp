#include "core/file_stamp.h"

#include <system_error>

namespace skerrow {

FileStamp StampOf(const std::string& path) {
  FileStamp stamp;
  std::error_code size_fault;
  std::error_code time_fault;
  stamp.size = std::filesystem::file_size(path, size_fault);
  stamp.time = std::filesystem::last_write_time(path, time_fault);
  stamp.there = !size_fault && !time_fault;
  return stamp.there ? stamp : FileStamp();
}

}  // namespace skerrow
