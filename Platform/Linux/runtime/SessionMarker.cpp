#include "Platform/Linux/runtime/SessionMarker.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace norra::linux_desktop {
namespace {

using std::chrono::milliseconds, std::chrono::steady_clock;

constexpr milliseconds lockLimit{500};
constexpr milliseconds lockPause{5};
constexpr mode_t ownerOnly = 0600;

int openInRuntimeFolder(const std::string& name) {
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  if (folder == nullptr || *folder == '\0') return -1;
  return open((std::string(folder) + "/" + name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, ownerOnly);
}

bool lockShared(int file) {
  const auto deadline = steady_clock::now() + lockLimit;
  while (flock(file, LOCK_SH | LOCK_NB) != 0) {
    if (steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(lockPause);
  }
  return true;
}

}  // namespace

SessionMarker::SessionMarker(const std::string& name) : file_(openInRuntimeFolder(name)) {
  if (file_ >= 0 && !lockShared(file_)) letGo();
}

SessionMarker::~SessionMarker() { letGo(); }

bool SessionMarker::isSet() const {
  struct stat status {};
  return file_ >= 0 && fstat(file_, &status) == 0 && status.st_size > 0;
}

void SessionMarker::set() {
  if (file_ >= 0 && pwrite(file_, "1\n", 2, 0) != 2) letGo();
}

bool SessionMarker::isLastHolder() {
  if (file_ < 0 || flock(file_, LOCK_EX | LOCK_NB) == 0) return true;
  letGo();
  return false;
}

void SessionMarker::clear() {
  if (file_ >= 0 && ftruncate(file_, 0) != 0) letGo();
}

void SessionMarker::letGo() {
  if (file_ >= 0) close(file_);
  file_ = -1;
}

}  // namespace norra::linux_desktop
