// The applications that are installed: an index of all desktop files, to find the one of a window or process.
#pragma once

#include <map>
#include <mutex>

#include "Platform/Linux/applications/DesktopFile.h"
#include "Platform/Linux/applications/DirectoryWatch.h"

namespace norra::linux_desktop {

/// By what names an application is known; each may be empty.
struct ApplicationNames {
  /// Both parts of a window's class.
  std::string instanceName;
  std::string className;
  /// Names of desktop files: as GTK and KDE note them at a window, and as a sandbox notes it at a process.
  std::string gtkApplicationIdentifier;
  std::string kdeDesktopFile;
  std::string sandboxIdentifier;
  /// As programOf gives it.
  std::string program;
};

/// Reads the files when they are first asked for, and again after a change in one of the folders. Any thread.
class DesktopFiles {
 public:
  /// A file in an earlier folder hides the files of the same name in later ones. `locale` as for readDesktopFile.
  explicit DesktopFiles(std::vector<std::filesystem::path> folders, std::string locale = {});

  /// The folders that the environment names for applications.
  static std::vector<std::filesystem::path> foldersOfEnvironment();

  /// The best match, from a window's class down to the program's name. Nothing: no file matches, or several do equally.
  std::optional<DesktopFile> find(const ApplicationNames& names);

  /// Grows with every change of the index.
  std::uint64_t generation();

 private:
  using Files = std::map<std::string, DesktopFile>;  // by identifier

  void refresh();
  void readFolder(const std::filesystem::path& folder);

  const std::vector<std::filesystem::path> folders_;
  const std::string locale_;
  std::mutex mutex_;

  // Guarded by mutex_.
  DirectoryWatch watch_;
  Files files_;
  std::uint64_t generation_ = 0;
};

}  // namespace norra::linux_desktop
