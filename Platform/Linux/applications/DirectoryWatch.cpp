#include "Platform/Linux/applications/DirectoryWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>

namespace norra::linux_desktop {
namespace {

constexpr std::uint32_t changes =
    IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

}  // namespace

DirectoryWatch::DirectoryWatch() : inotify_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

DirectoryWatch::~DirectoryWatch() {
  if (inotify_ >= 0) close(inotify_);
}

void DirectoryWatch::add(const std::filesystem::path& folder) {
  auto watched = folder;
  std::string awaitedEntry;
  int watch = inotify_add_watch(inotify_, watched.c_str(), changes);
  while (watch < 0 && watched.has_relative_path()) {
    awaitedEntry = watched.filename();
    watched = watched.parent_path();
    watch = inotify_add_watch(inotify_, watched.c_str(), changes);
  }
  if (watch < 0) return;
  const auto [known, isNew] = awaitedEntries_.emplace(watch, awaitedEntry);
  if (!isNew && known->second != awaitedEntry) known->second.clear();
}

bool DirectoryWatch::hasChanged() {
  bool changed = false;
  alignas(inotify_event) std::array<char, 4096> buffer;
  for (ssize_t size = 0; (size = read(inotify_, buffer.data(), buffer.size())) > 0;) {
    for (const char* next = buffer.data(); next < buffer.data() + size;) {
      const auto& event = *reinterpret_cast<const inotify_event*>(next);
      const auto awaited = awaitedEntries_.find(event.wd);
      const bool matters = awaited == awaitedEntries_.end() || awaited->second.empty() || event.len == 0 ||
                           awaited->second == event.name;
      changed = changed || matters;
      next += sizeof(inotify_event) + event.len;
    }
  }
  return changed;
}

}  // namespace norra::linux_desktop
