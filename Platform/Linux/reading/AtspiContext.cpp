#include "Platform/Linux/reading/AtspiContext.h"

#include "Platform/Linux/accessibility/AtspiApplicationElement.h"
#include "Platform/Linux/accessibility/AtspiElement.h"
#include "Platform/Linux/accessibility/AtspiSystemWideElement.h"
#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

constexpr std::size_t mostMissing = 256;

}  // namespace

AtspiContext::AtspiContext(const ReadingEpoch& epoch, WindowsOnScreen& windowsOnScreen)
    : windows(windowsOnScreen), epoch_(epoch) {
  shared.bus.onNewGeneration([this] { forgetAll(); });
}

AtspiReader& AtspiContext::reader() {
  const std::lock_guard lock(mutex_);
  auto& reader = readers_[std::this_thread::get_id()];
  if (!reader) reader = std::make_unique<AtspiReader>(shared, applications, epoch_);
  reader->enter();
  return *reader;
}

AXUIElement AtspiContext::element(const AtspiReference& reference, AtspiPart part) {
  return AXUIElement(std::make_shared<AtspiElement>(*this, reference, part));
}

AXUIElement AtspiContext::application(ProcessIdentifier process) {
  return AXUIElement(std::make_shared<AtspiApplicationElement>(*this, process));
}

AXUIElement AtspiContext::systemWide() { return AXUIElement(std::make_shared<AtspiSystemWideElement>(*this)); }

void AtspiContext::noteMissing(const WindowOnScreen& window) {
  const std::lock_guard lock(mutex_);
  if (missing_.size() >= mostMissing || !missing_.insert(window.process).second) return;
  platformLogger().info("The application of window '" + window.title + "' (process " + std::to_string(window.process) +
                        ") is not on the accessibility bus: its elements cannot be read. If it supports "
                        "accessibility, start it again");
}

void AtspiContext::forget(const std::string& busName) {
  applications.remove(busName);
  focus.forget(busName);
  selectedItems.forget(busName);
  shared.resting.forget(busName);
}

void AtspiContext::forgetAll() {
  applications.clear();
  processes.clear();
  focus.clear();
  selectedItems.clear();
  highlightedItems.clear();
  topLevels.clear();
  shared.resting.clear();
}

}  // namespace norra::linux_desktop
