// What is told of an application that became the followed one: the identifier that programs know it by, the name that
// the person sees, and the title of the window in front, each as far as the application has one.
#pragma once

#include <string>

#include "NorraDataCollector/model/Action.h"
#include "Platform/Accessibility.h"
#include "Platform/Workspace.h"

namespace norra {

/// What is told of an application that became the followed one. Reads the title of its focused window. Any thread.
ChangeApplicationData changeApplicationData(Accessibility& accessibility, const NSRunningApplication& application);

/// The last part of the address's path; empty where there is none. Its escapes are undone where that gives a text.
std::string lastPathComponent(const NSURL& url);

}  // namespace norra
