// A full disk, for tests.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace norra {

/// Lets no file of this process grow beyond a size, as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t size) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    set(size);
  }
  ~FileSizeLimit() { set(before_.rlim_cur); }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  void set(rlim_t size) const {
    const rlimit limit{size, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }

 private:
  rlimit before_{};
};

}  // namespace norra
