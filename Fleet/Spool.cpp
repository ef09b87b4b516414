#include "Fleet/Spool.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <tuple>
#include <utility>

namespace norra::fleet {
namespace {

/// Released lines stay in the file until they are so many: writing it anew costs what is left.
constexpr std::size_t maxStaleBytes = 1024 * 1024;

std::string contentOf(int file) {
  std::string content;
  std::array<char, 65536> piece{};
  ssize_t count = 0;
  while ((count = pread(file, piece.data(), piece.size(), static_cast<off_t>(content.size()))) > 0) {
    content.append(piece.data(), static_cast<std::size_t>(count));
  }
  return content;
}

constexpr const char* fileName = "waiting.jsonl";
constexpr const char* newFileName = "waiting.jsonl.new";

int openFile(int folder, const char* name, int flags) {
  return openat(folder, name, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | flags, S_IRUSR | S_IWUSR);
}

/// Negative, with errno, where that fails.
int openLockedFolder(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
  mkdir(path.c_str(), S_IRWXU);
  const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0 || flock(folder, LOCK_EX | LOCK_NB) == 0) return folder;
  close(folder);
  return -1;
}

std::string problemOf(const std::string& path) {
  if (errno == EWOULDBLOCK) return path + " is in use: another norra-publish runs";
  return path + " cannot be used: " + std::strerror(errno);
}

}  // namespace

std::variant<Spool, std::string> Spool::open(const std::string& folder, std::size_t maxBytes) {
  const int locked = openLockedFolder(folder);
  if (locked < 0) return problemOf(folder);
  Spool spool(locked, openFile(locked, fileName, 0), maxBytes);
  if (spool.file_ < 0) return problemOf(folder + "/" + fileName);
  spool.load();
  return spool;
}

Spool::Spool(Spool&& other) noexcept
    : folder_(std::exchange(other.folder_, -1)),
      file_(std::exchange(other.file_, -1)),
      maxBytes_(other.maxBytes_),
      lines_(std::move(other.lines_)),
      first_(other.first_),
      bytes_(other.bytes_),
      saved_(other.saved_),
      fileSize_(other.fileSize_),
      staleBytes_(other.staleBytes_),
      isSynchronized_(other.isSynchronized_) {}

Spool::~Spool() {
  if (file_ >= 0) close(file_);
  if (folder_ >= 0) close(folder_);
}

/// A line without an end was being written when the process was killed.
void Spool::load() {
  const auto content = contentOf(file_);
  for (std::size_t begin = 0, end = 0; (end = content.find('\n', begin)) != std::string::npos; begin = end + 1) {
    lines_.push_back(content.substr(begin, end - begin));
    bytes_ += lines_.back().size() + 1;
  }
  saved_ = end();
  fileSize_ = bytes_;
}

std::size_t Spool::append(std::string line) {
  bytes_ += line.size() + 1;
  lines_.push_back(std::move(line));
  std::size_t lost = 0;
  for (; bytes_ > maxBytes_ && lines_.size() > 1; ++lost) releaseBefore(first_ + 1);
  writeMissing();  // what fails is tried again by save()
  return lost;
}

void Spool::releaseBefore(Number number) {
  for (; first_ < number && !lines_.empty(); ++first_) {
    const auto size = lines_.front().size() + 1;
    if (first_ < saved_) staleBytes_ += size;
    bytes_ -= size;
    lines_.pop_front();
  }
  saved_ = std::max(saved_, first_);
}

int Spool::save() {
  int error = leaveOutReleased();
  if (error == 0) error = writeMissing();
  if (error == 0 && !isSynchronized_) error = fdatasync(file_) == 0 ? 0 : errno;
  isSynchronized_ = isSynchronized_ || error == 0;
  return error;
}

int Spool::leaveOutReleased() {
  if (staleBytes_ == 0) return 0;
  if (!lines_.empty()) return staleBytes_ > std::max(maxStaleBytes, bytes_) ? writeAnew() : 0;
  if (ftruncate(file_, 0) != 0) return errno;
  fileSize_ = staleBytes_ = 0;
  return 0;
}

/// The old file stays until the new one is on the disk.
int Spool::writeAnew() {
  const int file = openFile(folder_, newFileName, O_TRUNC);
  if (file < 0) return errno;
  auto before = std::tuple(std::exchange(file_, file), std::exchange(fileSize_, 0), std::exchange(saved_, first_));
  int error = writeMissing();
  if (error == 0 && (fdatasync(file_) != 0 || renameat(folder_, newFileName, folder_, fileName) != 0)) error = errno;
  if (error == 0) {
    close(std::get<0>(before));
    staleBytes_ = 0;
  } else {
    close(file);
    std::tie(file_, fileSize_, saved_) = before;
  }
  return error;
}

/// A line that was written in part is written over the next time.
int Spool::writeMissing() {
  for (; saved_ < end(); ++saved_) {
    const auto line = (*this)[saved_] + '\n';
    isSynchronized_ = false;
    const auto written = pwrite(file_, line.data(), line.size(), static_cast<off_t>(fileSize_));
    if (written < 0) return errno;
    if (static_cast<std::size_t>(written) < line.size()) return ENOSPC;
    fileSize_ += line.size();
  }
  return 0;
}

}  // namespace norra::fleet
