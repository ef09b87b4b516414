#include "Platform/Linux/toolkits/Toolkits.h"

#include <charconv>

namespace norra::linux_desktop {
namespace {

// GTK 4 puts its elements below its application's own path, and may have no root to ask.
bool isPathOfGtk4(std::string_view path) {
  return !path.starts_with("/org/a11y/") && path.find("/a11y/") != std::string_view::npos;
}

const Toolkit& gtkOf(std::string_view version) {
  if (!version.starts_with("4.")) return gtk3;
  int minor = 0;
  std::from_chars(version.data() + 2, version.data() + version.size(), minor);
  constexpr int lastWithClassNames = 8;
  return minor <= lastWithClassNames ? gtk4WithClassNames : gtk4;
}

}  // namespace

const Toolkit& toolkitNamed(std::string_view name, std::string_view version, std::string_view path) {
  if (name == "GTK" || name == "gtk") return gtkOf(version);
  if (name == "Qt") return qt;
  if (name == "Chromium" || name == "Electron") return chromium;
  if (name == "Gecko") return gecko;
  if (name == "J2SE-access-bridge") return java;
  return isPathOfGtk4(path) ? gtk4WithClassNames : unknownToolkit;
}

}  // namespace norra::linux_desktop
