// A session bus of a test's own.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace norra::linux_desktop {

/// A folder that goes away with its owner.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// Runs a dbus-daemon and makes it the session bus of this process and its children, until its end. Services are
/// activated from `servicesFolder`, where one is given.
class PrivateBus {
 public:
  explicit PrivateBus(const std::filesystem::path& servicesFolder = {});
  ~PrivateBus();
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  /// Everyone loses their connection.
  void kill();

 private:
  TemporaryFolder folder_;
  pid_t daemon_ = 0;
};

/// The same, which AT_SPI_BUS_ADDRESS names too.
class PrivateAccessibilityBus {
 public:
  PrivateAccessibilityBus();
  ~PrivateAccessibilityBus();
  PrivateAccessibilityBus(const PrivateAccessibilityBus&) = delete;
  PrivateAccessibilityBus& operator=(const PrivateAccessibilityBus&) = delete;

 private:
  PrivateBus bus_;
};

}  // namespace norra::linux_desktop
