// norra-inspect: what the platform says about an element of the desktop, for developers.
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Platform/Linux/accessibility/ElementHandles.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/toolkits/Toolkits.h"
#include "Platform/Linux/x11/X11Display.h"

namespace norra::linux_desktop {
namespace {

constexpr int maxLevels = 12;
constexpr int wrongUse = 2;

constexpr const char* usage =
    "usage: norra-inspect X Y            the element at a point of the screen, in pixels, and those above it\n"
    "       norra-inspect focused [PID]  the element with the keyboard focus, of the desktop or of one application\n"
    "       norra-inspect --help\n"
    "Prints what the platform says of each: its attributes, its actions and its process, and behind them the calls,\n"
    "the waves of calls and the microseconds that reading it took. Ends with 1 where there is no such element.\n";

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

struct Target {
  std::optional<CGPoint> point = std::nullopt;  // nothing: what has the focus
  std::optional<ProcessIdentifier> process = std::nullopt;
};

/// Nothing where the text is no such number.
template <typename Number>
std::optional<Number> numberIn(const std::string& text) {
  Number number{};
  const auto* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

/// What is asked for, or what is wrong with the question; a text that is empty where its shape is wrong.
std::variant<Target, std::string> targetIn(const std::vector<std::string>& arguments) {
  if (arguments == std::vector<std::string>{"focused"}) return Target{};
  if (arguments.size() != 2) return "";
  if (arguments[0] == "focused") {
    const auto process = numberIn<ProcessIdentifier>(arguments[1]);
    if (process && *process > 0) return Target{.process = process};
    return "'" + arguments[1] + "' is no process identifier: a whole number above 0";
  }
  std::array<float, 2> place{};
  for (std::size_t i = 0; i < place.size(); ++i) {
    const auto number = numberIn<float>(arguments[i]);
    if (!number || !std::isfinite(*number))
      return "'" + arguments[i] + "' is no number: X and Y are pixels of the screen";
    place.at(i) = *number;
  }
  return Target{.point = CGPoint{place[0], place[1]}};
}

std::optional<AXUIElement> find(const Target& target, const ElementHandles& handles) {
  if (target.point) {
    const auto [x, y] = *target.point;
    return handles.systemWide().primitives().copyElementAtPosition(static_cast<float>(x), static_cast<float>(y)).value;
  }
  const auto owner = target.process ? handles.application(*target.process) : handles.systemWide();
  return elementIn(owner.primitives().copyAttributeValue("AXFocusedUIElement"));
}

/// Whether there is one.
bool inspect(const Target& target, WindowsOnScreen& windows) {
  CountedEpoch epoch;
  AtspiSession session(epoch, toolkitNamed);
  Focus focus(session);
  PointedElement pointed(session, focus, windows);
  const ElementHandles handles(session, focus, pointed, windows);
  Meter meter(session.shared.statistics);
  for (int i = 0; i < 3; ++i) {
    epoch.begin();
    const auto found = find(target, handles);
    std::printf("found %s\n", meter.lap().c_str());
    if (found) walk(*found, meter);
  }
  epoch.begin();
  auto element = find(target, handles);
  const bool isThere = element.has_value();
  meter.lap();
  for (int level = 0; element && level < maxLevels; ++level) {
    std::printf("%d\n", level);
    print(*element, meter);
    element = parentOf(*element);
  }
  return isThere;
}

int inspectOnDesktop(const Target& target) {
  EventLoop loop;
  NoWindowsOnScreen noWindows;
  const auto display = openX11Display(loop.event());
  if (inspect(target, display ? display->windows() : noWindows)) return 0;
  std::fputs("norra-inspect: there is no such element\n", stderr);
  return 1;
}

}  // namespace
}  // namespace norra::linux_desktop

int main(int argumentCount, char** values) {
  using namespace norra::linux_desktop;
  const std::vector<std::string> arguments(values + 1, values + argumentCount);
  if (arguments == std::vector<std::string>{"--help"}) {
    std::fputs(usage, stdout);
    return 0;
  }
  const auto target = targetIn(arguments);
  if (const auto* found = std::get_if<Target>(&target)) return inspectOnDesktop(*found);
  const auto& problem = std::get<std::string>(target);
  std::fputs(problem.empty() ? usage : ("norra-inspect: " + problem + "\n").c_str(), stderr);
  return wrongUse;
}
