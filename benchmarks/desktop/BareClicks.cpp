#include "benchmarks/desktop/BareClicks.h"

#include <stdexcept>
#include <thread>

#include "Platform/Linux/atspi/AtspiBus.h"
#include "Platform/Linux/atspi/AtspiMessage.h"

namespace norra::benchmarks {
namespace {

using namespace linux_desktop;
using std::chrono::steady_clock;

constexpr std::chrono::seconds limit{5};
constexpr std::chrono::milliseconds pauseBetweenClicks{60};
constexpr const char* accessible = "org.a11y.atspi.Accessible";
constexpr const char* component = "org.a11y.atspi.Component";

/// Calls that travel together, on the bare library.
class Wave {
 public:
  explicit Wave(sd_bus* bus) : bus_(bus) {}

  void method(const AtspiReference& element, const char* interface, const char* member) {
    send(sd_bus_call_method_async(bus_, nullptr, element.busName.c_str(), element.path.c_str(), interface, member,
                                  onReply, this, ""));
  }
  void property(const AtspiReference& element, const char* interface, const char* name) {
    send(sd_bus_call_method_async(bus_, nullptr, element.busName.c_str(), element.path.c_str(),
                                  "org.freedesktop.DBus.Properties", "Get", onReply, this, "ss", interface, name));
  }
  void numbered(const AtspiReference& element, const char* interface, const char* member) {
    send(sd_bus_call_method_async(bus_, nullptr, element.busName.c_str(), element.path.c_str(), interface, member,
                                  onReply, this, "i", 0));
  }
  void hitTest(const AtspiReference& element, Place place, std::uint32_t coordinates) {
    send(sd_bus_call_method_async(bus_, nullptr, element.busName.c_str(), element.path.c_str(), component,
                                  "GetAccessibleAtPoint", onReply, this, "iiu", place.x, place.y, coordinates));
  }

  /// The last reply.
  sd_bus_message* await() {
    if (!serveBus(bus_, steady_clock::now() + limit, [this] { return replies_ == calls_; })) {
      throw std::runtime_error("an application does not answer");
    }
    return last_.get();
  }
  int calls() const { return calls_; }

 private:
  void send(int result) {
    if (result < 0) throw std::runtime_error("a call cannot be sent");
    ++calls_;
  }
  static int onReply(sd_bus_message* reply, void* self, sd_bus_error*) noexcept {
    auto& wave = *static_cast<Wave*>(self);
    wave.last_.reset(sd_bus_message_ref(reply));
    ++wave.replies_;
    return 1;
  }

  sd_bus* bus_;
  int calls_ = 0;
  int replies_ = 0;
  MessagePtr last_;
};

class Floor {
 public:
  Floor(const Target& target, const WayToAsk& way) : target_(target), way_(way) {
    if (!bus_ || !windows_) throw std::runtime_error("no accessibility bus or no X server");
  }

  void reachAllFacts() {
    calls_ = waves_ = 0;
    lookUpWindow();
    hitTest();
    readFacts();
  }
  int calls() const { return calls_; }
  int waves() const { return waves_; }

 private:
  xcb_window_t childAt(xcb_window_t window) {
    const auto reply = windows_->await<&xcb_translate_coordinates_reply>(xcb_translate_coordinates(
        windows_->get(), windows_->root(), window, static_cast<std::int16_t>(target_.onScreen.x),
        static_cast<std::int16_t>(target_.onScreen.y)));
    return reply ? reply->child : xcb_window_t{XCB_NONE};
  }

  void lookUpWindow() {
    const auto client = childAt(childAt(windows_->root()));
    const auto process = windows_->askProperty(client, X11Atom::netWindowManagerProcess);
    windows_->await<&xcb_get_property_reply>(process);
  }

  AtspiReference hitOn(const AtspiReference& element, std::uint32_t coordinates) {
    Wave wave(bus_.get());
    wave.hitTest(element, target_.asked, coordinates);
    const auto hit = readReference(wave.await());
    note(wave);
    return hit.value_or(AtspiReference{});
  }

  void hitTest() {
    using HitTest = WayToAsk::HitTest;
    const std::uint32_t coordinates = way_.hitTest == HitTest::inWindow ? 1 : 0;
    auto hit = hitOn(target_.window, coordinates);
    if (way_.hitTest == HitTest::twice) hit = hitOn(target_.window, coordinates);
    if (way_.hitTest != HitTest::levelByLevel) return;
    for (auto below = hitOn(hit, coordinates); !below.isNull() && below != hit; below = hitOn(hit, coordinates)) {
      hit = below;
    }
  }

  void readFacts() {
    Wave wave(bus_.get());
    const auto control = static_cast<std::size_t>(way_.levelsToControl);
    for (std::size_t level = 0; level < target_.chain.size(); ++level) {
      askForPlace(wave, target_.chain[level]);
      if (level <= control) askForAll(wave, target_.chain[level]);
    }
    if (way_.hasRoleNames) wave.method(target_.chain[control], accessible, "GetLocalizedRoleName");
    if (control > 0) askForActions(wave, target_.chain[0]);
    if (way_.isWeb) wave.numbered(target_.chain[control], "org.a11y.atspi.Hyperlink", "GetURI");
    wave.await();
    note(wave);
  }

  static void askForPlace(Wave& wave, const AtspiReference& element) {
    wave.method(element, accessible, "GetRole");
    wave.property(element, accessible, "Parent");
  }

  void askForAll(Wave& wave, const AtspiReference& element) const {
    wave.method(element, accessible, "GetState");
    wave.method(element, accessible, "GetInterfaces");
    wave.property(element, accessible, "Name");
    wave.property(element, accessible, "Description");
    wave.method(element, accessible, "GetRelationSet");
    wave.property(element, accessible, "AccessibleId");
    if (way_.isWeb) wave.method(element, accessible, "GetAttributes");
  }

  static void askForActions(Wave& wave, const AtspiReference& element) {
    wave.property(element, "org.a11y.atspi.Action", "NActions");
    wave.numbered(element, "org.a11y.atspi.Action", "GetName");
  }

  void note(const Wave& wave) {
    calls_ += wave.calls();
    ++waves_;
  }

  const Target& target_;
  const WayToAsk& way_;
  BusPtr bus_ = AtspiBus().connect();
  std::unique_ptr<X11Connection> windows_ = X11Connection::open();
  int calls_ = 0;
  int waves_ = 0;
};

/// A connection to the socket that the application itself listens on; null where it has none.
BusPtr socketOf(sd_bus* bus, const AtspiReference& element) {
  sd_bus_message* message = nullptr;
  sd_bus_call_method(bus, element.busName.c_str(), AtspiReference::rootPath, "org.a11y.atspi.Application",
                     "GetApplicationBusAddress", nullptr, &message, "");
  const MessagePtr reply(message);
  const auto address = readText(message).value_or("");
  sd_bus* handle = nullptr;
  if (address.empty() || sd_bus_new(&handle) < 0) return nullptr;
  BusPtr socket(handle);
  if (sd_bus_set_address(handle, address.c_str()) < 0 || sd_bus_start(handle) < 0) return nullptr;
  return socket;
}

std::vector<double> callRepeatedly(sd_bus* bus, const AtspiReference& element, int calls) {
  std::vector<double> durations;
  for (int i = 0; i < calls; ++i) {
    const auto begin = steady_clock::now();
    Wave wave(bus);
    wave.method(element, accessible, "GetRole");
    wave.await();
    durations.push_back(microsecondsSince(begin));
  }
  return durations;
}

}  // namespace

Samples clickWithBareCalls(Hands& hands, int clicks, const Target& target, const WayToAsk& way) {
  Floor floor(target, way);
  Samples samples;
  for (int i = 0; i < clicks; ++i) {
    const auto released = hands.click();
    floor.reachAllFacts();
    samples["total"].push_back(microsecondsSince(released));
    std::this_thread::sleep_for(pauseBetweenClicks);
  }
  samples["calls"] = {double(floor.calls())};
  samples["waves"] = {double(floor.waves())};
  return samples;
}

Samples clickWithOneCall(Hands& hands, int clicks, const Target& target) {
  const auto bus = AtspiBus().connect();
  Samples samples;
  for (int i = 0; i < clicks; ++i) {
    const auto released = hands.click();
    Wave wave(bus.get());
    wave.method(target.window, accessible, "GetRole");
    wave.await();
    samples["total"].push_back(microsecondsSince(released));
    std::this_thread::sleep_for(pauseBetweenClicks);
  }
  return samples;
}

Samples callOverBusAndSocket(const Target& target, int calls) {
  const auto bus = AtspiBus().connect();
  const auto& element = target.chain.front();
  Samples samples{{"bus", callRepeatedly(bus.get(), element, calls)}};
  if (const auto socket = socketOf(bus.get(), element))
    samples["socket"] = callRepeatedly(socket.get(), element, calls);
  return samples;
}

}  // namespace norra::benchmarks
