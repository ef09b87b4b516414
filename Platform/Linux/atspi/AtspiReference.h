// What AT-SPI calls an object: the bus name of the application that has it, and a path there. It does not say whether
// the element is still there, and a toolkit may give the path of one that has gone to another.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace norra::linux_desktop {

struct AtspiReference {
  std::string busName;
  std::string path;

  /// Whether it names no object, as toolkits say "none".
  bool isNull() const { return busName.empty() || path.empty() || path == nullPath; }

  bool operator==(const AtspiReference&) const = default;

  static constexpr const char* nullPath = "/org/a11y/atspi/null";
  static constexpr const char* rootPath = "/org/a11y/atspi/accessible/root";
};

struct AtspiReferenceHash {
  std::size_t operator()(const AtspiReference& reference) const noexcept {
    const std::hash<std::string> hash;
    return hash(reference.path) * 31 + hash(reference.busName);
  }
};

}  // namespace norra::linux_desktop
