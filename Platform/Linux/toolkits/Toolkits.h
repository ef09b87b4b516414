// The toolkits that are known, one file each in this folder.
#pragma once

#include "Platform/Linux/reading/Toolkit.h"

namespace norra::linux_desktop {

extern const Toolkit gtk3;
/// Until 4.8 what has no name is called by its class.
extern const Toolkit gtk4WithClassNames;
extern const Toolkit gtk4;
extern const Toolkit qt;
extern const Toolkit chromium;
extern const Toolkit gecko;
extern const Toolkit java;

/// See ToolkitLookup.
const Toolkit& toolkitNamed(std::string_view name, std::string_view version, std::string_view path);

}  // namespace norra::linux_desktop
