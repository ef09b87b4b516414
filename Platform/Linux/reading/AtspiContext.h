// What all elements of the desktop share: the way to their applications, what is known of these, and where the windows
// are.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <thread>

#include "Platform/Accessibility.h"
#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/following/HighlightedItems.h"
#include "Platform/Linux/pointer/PressedElement.h"
#include "Platform/Linux/pointer/TopLevels.h"
#include "Platform/Linux/reading/AtspiProcesses.h"
#include "Platform/Linux/reading/AtspiReader.h"
#include "Platform/Linux/reading/FocusMemory.h"
#include "Platform/Linux/reading/SelectedItems.h"

namespace norra::linux_desktop {

/// Which part of an object an element is. Tables that have cells only get their rows and columns made up.
struct AtspiPart {
  enum class Kind : std::uint8_t { whole, row, column };
  Kind kind = Kind::whole;
  std::int32_t index = 0;
  bool operator==(const AtspiPart&) const = default;
};

/// Outlives all elements. Any thread.
class AtspiContext {
 public:
  /// Both must outlive this.
  AtspiContext(const ReadingEpoch& epoch, WindowsOnScreen& windowsOnScreen);
  AtspiContext(const AtspiContext&) = delete;
  AtspiContext& operator=(const AtspiContext&) = delete;

  /// The calling thread's reader, for the event that is handled.
  AtspiReader& reader();

  AXUIElement element(const AtspiReference& reference, AtspiPart part = {});
  AXUIElement application(ProcessIdentifier process);
  AXUIElement systemWide();

  /// The process has a window but nothing on the accessibility bus, which is logged once for each.
  void noteMissing(const WindowOnScreen& window);

  /// The name has left the bus.
  void forget(const std::string& busName);
  /// All names have.
  void forgetAll();

  AtspiShared shared;
  AtspiApplications applications;
  AtspiProcesses processes;
  FocusMemory focus;
  HighlightedItems highlightedItems;
  KnownTopLevels topLevels;
  PressedElement pressed;
  SelectedItems selectedItems;
  WindowsOnScreen& windows;

 private:
  const ReadingEpoch& epoch_;
  std::mutex mutex_;
  // guarded by mutex_
  std::map<std::thread::id, std::unique_ptr<AtspiReader>> readers_;
  std::set<ProcessIdentifier> missing_;
};

}  // namespace norra::linux_desktop
