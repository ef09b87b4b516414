#include "Client/LineWriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace norra {
namespace {

bool isRegularFile(int descriptor, struct stat& status) {
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool endsInsideALine(int descriptor) {
  struct stat status {};
  char last = '\n';
  return isRegularFile(descriptor, status) && status.st_size > 0 &&
         pread(descriptor, &last, 1, status.st_size - 1) == 1 && last != '\n';
}

}  // namespace

LineWriter::Opened LineWriter::open(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY, S_IRUSR | S_IWUSR);
  if (descriptor < 0) return {-1, path + " cannot be opened: " + std::strerror(errno)};
  if (endsInsideALine(descriptor)) LineWriter(descriptor).write("");
  return {descriptor, {}};
}

int LineWriter::write(std::string_view line) {
  if (const int error = writeRest(); error != 0) return error;
  rest_.assign(line).push_back('\n');
  const auto size = rest_.size();
  const int error = writeRest();
  if (error != 0 && rest_.size() == size) rest_.clear();
  return error;
}

int LineWriter::writeRest() {
  while (!rest_.empty()) {
    const auto written = ::write(descriptor_, rest_.data(), rest_.size());
    if (written < 0 && errno != EINTR) return errno;
    if (written > 0) rest_.erase(0, static_cast<std::size_t>(written));
  }
  return 0;
}

bool LineWriter::isAtBeginning() const {
  struct stat status {};
  return !isRegularFile(descriptor_, status) || status.st_size == 0;
}

}  // namespace norra
