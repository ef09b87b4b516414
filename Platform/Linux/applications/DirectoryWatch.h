// Notices that something changed in some folders, without looking into them again.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace norra::linux_desktop {

/// One thread at a time.
class DirectoryWatch {
 public:
  DirectoryWatch();
  ~DirectoryWatch();
  DirectoryWatch(const DirectoryWatch&) = delete;
  DirectoryWatch& operator=(const DirectoryWatch&) = delete;

  /// Watches the folder itself, not those in it. Of a folder that does not exist, its coming is noticed.
  void add(const std::filesystem::path& folder);

  /// Whether anything changed since the last call. Costs one system call and never waits.
  bool hasChanged();

 private:
  int inotify_;
  /// By watch: the only entry that matters there, for a folder that is watched in place of one that is to come.
  std::map<int, std::string> awaitedEntries_;
};

}  // namespace norra::linux_desktop
