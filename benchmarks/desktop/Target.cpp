#include "benchmarks/desktop/Target.h"

#include <map>
#include <stdexcept>

#include "Platform/Linux/pointer/PointedElement.h"
#include "Platform/Linux/toolkits/Toolkits.h"
#include "Platform/Linux/x11/X11Windows.h"

namespace norra::benchmarks {
namespace {

using namespace linux_desktop;

class NothingKept final : public ReadingEpoch {
 public:
  std::optional<std::uint64_t> current() const override { return std::nullopt; }
};

Place insideWindow(AtspiReader& reader, const AtspiReference& topLevel, const WindowOnScreen& window, Place place) {
  const auto extents = reader.read(topLevel, Ask::windowExtents).windowExtents;
  const bool saysShadow = window.shadow != ShadowExtents{};
  const auto left = saysShadow ? window.shadow.left : (window.client.width - extents.width) / 2;
  const auto top = saysShadow ? window.shadow.top : (window.client.height - extents.height) / 2;
  return {static_cast<std::int32_t>(place.x - window.client.x - left),
          static_cast<std::int32_t>(place.y - window.client.y - top)};
}

}  // namespace

WayToAsk WayToAsk::named(const std::string& toolkit) {
  static const std::map<std::string, WayToAsk> ways{{"gtk3", {HitTest::levelByLevel, false, false, 0, 0}},
                                                    {"gtk4", {HitTest::inWindow, false, true, 1, 0}},
                                                    {"qt", {HitTest::atOnce, false, true, 0, 1}},
                                                    {"chromium-button", {HitTest::twice, true, false, 1, 2}},
                                                    {"chromium-link", {HitTest::twice, true, false, 1, 1}}};
  return ways.at(toolkit);
}

Target findTarget(Place onScreen, const WayToAsk& way) {
  auto connection = X11Connection::open();
  auto forPlaces = X11Connection::open();
  if (!connection || !forPlaces) throw std::runtime_error("no X server");
  X11Windows windows(std::move(connection), std::move(forPlaces));
  const NothingKept epoch;
  AtspiSession session(epoch, toolkitNamed);
  Focus focus(session);
  PointedElement pointed(session, focus, windows);
  const CGPoint point{double(onScreen.x), double(onScreen.y)};
  auto element = pointed.at(point);
  const auto window = windows.topLevelWindowAt(point);
  if (element.isNull() || !window) throw std::runtime_error("nothing is there");
  Target target{onScreen, onScreen, pointed.knownTopLevelOf(*window), {}};
  if (way.hitTest == WayToAsk::HitTest::inWindow) {
    target.asked = insideWindow(session.reader(), target.window, *window, onScreen);
  }
  for (int level = 0; level <= way.levelsToControl + way.levelsBeyond; ++level) {
    target.chain.push_back(element);
    element = session.reader().read(element, Ask::parent).parent;
  }
  return target;
}

}  // namespace norra::benchmarks
