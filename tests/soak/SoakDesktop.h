// A desktop with some of everything that the service reports on.
#pragma once

#include <array>
#include <string>

#include "Platform/Simulated/DesktopDescription.h"

namespace norra::soak {

inline constexpr std::array<ProcessIdentifier, 3> processes{501, 502, 503};
inline constexpr int rowCount = 40;
inline constexpr double rowHeight = 20;

/// The identifier of an application's element.
std::string identifier(ProcessIdentifier process, const std::string& element);

/// What the application's element of this name is when nothing has happened yet.
simulated::ElementDescription element(ProcessIdentifier process, const std::string& name);

/// The names of the elements that can have the focus.
const std::vector<std::string>& focusableElements();

/// The same applications three times, one beside the other; on the screen each takes a column of rows.
simulated::DesktopDescription soakDesktop();

}  // namespace norra::soak
