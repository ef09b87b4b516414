// norra-inspect: what the platform says about an element of the desktop, for developers.
//
//   norra-inspect X Y          the element at a point of the screen, and those above it
//   norra-inspect focused      the element with the keyboard focus
//   norra-inspect focused PID  the same of one application
//
// Behind each element: calls, waves and microseconds that reading it took.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Linux/accessibility/ElementHandles.h"
#include "Platform/Linux/toolkits/Toolkits.h"
#include "Platform/Linux/x11/X11Windows.h"

namespace norra::linux_desktop {
namespace {

constexpr int mostLevels = 12;

class Meter {
 public:
  explicit Meter(const AtspiStatistics& statistics) : statistics_(statistics) {}

  std::string lap() {
    const auto now = std::chrono::steady_clock::now();
    const auto microseconds = std::chrono::duration_cast<std::chrono::microseconds>(now - begin_).count();
    const auto text = "[" + std::to_string(statistics_.reads - reads_) + " calls, " +
                      std::to_string(statistics_.waves - waves_) + " waves, " + std::to_string(microseconds) + " us]";
    reads_ = statistics_.reads;
    waves_ = statistics_.waves;
    begin_ = now;
    return text;
  }

 private:
  const AtspiStatistics& statistics_;
  std::uint64_t reads_ = 0;
  std::uint64_t waves_ = 0;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

std::string textOf(const NSNumber& number) {
  return std::visit([](auto value) { return std::to_string(value); }, number.value);
}

std::string nameOf(const AXUIElement& element) {
  const auto& primitives = element.primitives();
  std::string text;
  for (const auto* attribute : {"AXRole", "AXTitle"}) {
    const auto value = primitives.copyAttributeValue(attribute).value;
    if (const auto* word = std::get_if<std::string>(&value)) text += (text.empty() ? "" : " ") + *word;
  }
  return "<" + text + ">";
}

std::string textOf(const std::vector<AXUIElement>& elements) {
  std::string text = std::to_string(elements.size()) + " elements";
  for (std::size_t i = 0; i < elements.size() && i < 3; ++i) text += " " + nameOf(elements[i]);
  return text;
}

struct Describe {
  std::string operator()(std::monostate) const { return "nothing"; }
  std::string operator()(const std::string& text) const { return "\"" + text + "\""; }
  std::string operator()(const NSNumber& number) const { return textOf(number); }
  std::string operator()(const AXUIElement& element) const { return nameOf(element); }
  std::string operator()(const std::vector<AXUIElement>& elements) const { return textOf(elements); }
  std::string operator()(const NSURL& url) const { return url.absoluteString; }
  std::string operator()(const CFRange& range) const {
    return std::to_string(range.location) + "+" + std::to_string(range.length);
  }
  std::string operator()(const CGPoint&) const { return "a point"; }
  std::string operator()(const CFOther& other) const { return other.description; }
};

void print(const AXUIElement& element, Meter& meter) {
  const auto& primitives = element.primitives();
  const auto names = primitives.copyAttributeNames();
  for (const auto& name : names.value) {
    const auto result = primitives.copyAttributeValue(name);
    if (result.error == 0) std::printf("  %s: %s\n", name.c_str(), std::visit(Describe(), result.value).c_str());
  }
  std::string actions;
  for (const auto& action : primitives.copyActionNames().value) actions += " " + action;
  std::printf("  actions:%s\n  process: %d  %s\n", actions.c_str(), primitives.getPid().value, meter.lap().c_str());
}

std::optional<AXUIElement> elementIn(const AXResult<AXAttributeValue>& result) {
  if (const auto* element = std::get_if<AXUIElement>(&result.value)) return *element;
  return std::nullopt;
}

std::optional<AXUIElement> parentOf(const AXUIElement& element) {
  return elementIn(element.primitives().copyAttributeValue("AXParent"));
}

// What the walk of a click reads, as quickly as it reads it.
void walk(AXUIElement element, Meter& meter) {
  for (int level = 0; level < 6; ++level) {
    const auto& primitives = element.primitives();
    for (const auto* attribute : {"AXRole", "AXURL", "AXTitle", "AXDescription", "AXValue", "AXHelp", "AXIdentifier",
                                  "AXTitleUIElement", "AXSubrole"}) {
      if (level == 0 || std::string_view(attribute) == "AXRole") primitives.copyAttributeValue(attribute);
    }
    auto parent = parentOf(element);
    if (!parent) break;
    element = *parent;
  }
  element.primitives().copyAttributeValue("AXRoleDescription");
  std::printf("walk %s\n", meter.lap().c_str());
}

std::optional<AXUIElement> find(const std::vector<std::string>& arguments, const ElementHandles& handles) {
  if (arguments.size() == 2 && arguments[0] != "focused") {
    return handles.systemWide()
        .primitives()
        .copyElementAtPosition(std::stof(arguments[0]), std::stof(arguments[1]))
        .value;
  }
  const auto owner =
      arguments.size() == 2 ? handles.application(std::atoi(arguments[1].c_str())) : handles.systemWide();
  return elementIn(owner.primitives().copyAttributeValue("AXFocusedUIElement"));
}

void inspect(const std::vector<std::string>& arguments, WindowsOnScreen& windows) {
  CountedEpoch epoch;
  AtspiSession session(epoch, toolkitNamed);
  Focus focus(session);
  PointedElement pointed(session, focus, windows);
  const ElementHandles handles(session, focus, pointed, windows);
  Meter meter(session.shared.statistics);
  for (int i = 0; i < 3; ++i) {
    epoch.begin();
    const auto found = find(arguments, handles);
    std::printf("found %s\n", meter.lap().c_str());
    if (found) walk(*found, meter);
  }
  epoch.begin();
  auto element = find(arguments, handles);
  meter.lap();
  for (int level = 0; element && level < mostLevels; ++level) {
    std::printf("%d\n", level);
    print(*element, meter);
    element = parentOf(*element);
  }
}

}  // namespace
}  // namespace norra::linux_desktop

int main(int count, char** values) {
  using namespace norra::linux_desktop;
  const std::vector<std::string> arguments(values + 1, values + count);
  if (arguments.empty() || arguments.size() > 2) {
    std::fputs("usage: norra-inspect X Y | focused [PID]\n", stderr);
    return 2;
  }
  NoWindowsOnScreen noWindows;
  auto connection = X11Connection::open();
  const auto windows = connection ? std::make_unique<X11Windows>(std::move(connection)) : nullptr;
  inspect(arguments, windows ? static_cast<WindowsOnScreen&>(*windows) : noWindows);
  return 0;
}
