// A Linux desktop of its own, asked what every desktop is asked: a private session bus, and where it takes them a
// private X server with a window manager, an accessibility bus and GTK applications.
#include <csignal>
#include <cstdlib>
#include <map>

#include "Platform/Linux/LinuxPlatform.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/PrivateDisplay.h"
#include "tests/Platform/Linux/TestClient.h"
#include "tests/conformance/ConformanceTest.h"
#include "tests/conformance/LinuxApplication.h"

namespace norra::conformance {
namespace {

using linux_desktop::EventLoop;
using linux_desktop::LinuxPlatform;
using linux_desktop::PrivateBus;
using linux_desktop::PrivateDisplay;
using linux_desktop::TestClient;

constexpr std::chrono::seconds patience{20};

class Client final : public ServiceClient {
 public:
  Client(sd_event* event, bool isUsable)
      : client_(event, isUsable ? TestClient::Object::usable : TestClient::Object::none) {}

  void call(Operation operation) override {
    static constexpr std::array methods{"startCollectorWith", "stopCollectorWith", "pauseCollectorWith",
                                        "resumeCollectorWith"};
    client_.call(methods[static_cast<std::size_t>(operation)]);
  }
  std::vector<std::string> replies() const override { return client_.replies(); }
  std::vector<ReceivedReport> reports() const override {
    std::vector<ReceivedReport> reports;
    for (const auto& [event, date, isApplicationEvent] : client_.events()) {
      reports.push_back(
          {event, std::chrono::system_clock::time_point(std::chrono::microseconds(date)), isApplicationEvent});
    }
    return reports;
  }
  void stopReading() override { client_.stopReading(); }
  void readReports(std::size_t count) override { client_.readEvents(count, patience); }
  void disconnect() override { client_.vanish(); }

 private:
  TestClient client_;
};

bool needsDisplay(Facility facility) {
  return facility == Facility::workspace || facility == Facility::input || facility == Facility::elements ||
         facility == Facility::observers;
}

class LinuxDesktop final : public DesktopUnderTest {
 public:
  explicit LinuxDesktop(Facility facility) {
    std::signal(SIGPIPE, SIG_IGN);  // of an application that has ended
    if (needsDisplay(facility)) display_.emplace();
    bus_.emplace("/usr/share/dbus-1/services");  // what it starts is on the display
    if (display_ && facility != Facility::input) display_->startWindowManager();
    platform_ = LinuxPlatform::create().platform;
    EXPECT_NE(platform_, nullptr);
  }
  ~LinuxDesktop() override { applications_.clear(); }
  LinuxDesktop(const LinuxDesktop&) = delete;
  LinuxDesktop& operator=(const LinuxDesktop&) = delete;

  Platform platform() override { return platform_->facilities(); }

  bool serveUntil(const std::function<bool()>& condition) override {
    return linux_desktop::serveUntil(event(), condition);
  }

  ProcessIdentifier startApplication(const std::string& title) override {
    auto application = std::make_unique<LinuxApplication>(title);
    const auto process = application->process();
    applications_[process] = std::move(application);
    return process;
  }
  void endApplication(ProcessIdentifier application) override { applications_.erase(application); }
  void activate(ProcessIdentifier application) override {
    user("windowactivate --sync " + ask(application, "window").dump());
  }

  void addControl(ProcessIdentifier application, ControlKind kind, const std::string& name) override {
    ask(application, kind == ControlKind::button ? "add button" : "add field", name);
  }
  void removeControl(ProcessIdentifier application, const std::string& name) override {
    ask(application, "remove", name);
  }
  void setText(ProcessIdentifier application, const std::string& name, const std::string& text) override {
    ask(application, "text", {name, text});
  }
  void focus(ProcessIdentifier application, const std::string& name) override { ask(application, "focus", name); }
  CGPoint middleOf(ProcessIdentifier application, const std::string& name) override {
    const std::array<double, 4> place = ask(application, "place", name);
    return {place[0] + place[2] / 2, place[1] + place[3] / 2};
  }

  void click(CGPoint location) override {
    user("mousemove " + std::to_string(std::lround(location.x)) + " " + std::to_string(std::lround(location.y)) +
         " click 1");
  }
  void pressKey(char letter) override { user(std::string("key ") + letter); }
  void pressShortcut(char letter) override { user(std::string("key ctrl+") + letter); }

  std::unique_ptr<ServiceClient> connectClient(bool isUsable) override {
    return std::make_unique<Client>(event(), isUsable);
  }

 private:
  sd_event* event() { return static_cast<EventLoop&>(platform().mainRunLoop).event(); }
  void user(const std::string& does) { linux_desktop::serveWhile(event(), "xdotool " + does); }
  nlohmann::json ask(ProcessIdentifier application, const std::string& command,
                     const nlohmann::json& argument = nullptr) {
    return applications_.at(application)->ask(command, argument);
  }

  std::optional<PrivateDisplay> display_;
  std::optional<PrivateBus> bus_;
  std::unique_ptr<LinuxPlatform> platform_;
  std::map<ProcessIdentifier, std::unique_ptr<LinuxApplication>> applications_;
};

bool hasProgram(const std::string& name) { return std::system(("command -v " + name + " >/dev/null").c_str()) == 0; }

std::optional<std::string> whyNot(Facility facility) {
  if (!hasProgram("dbus-daemon")) return "no dbus-daemon on this machine; install dbus-daemon";
  if (!needsDisplay(facility)) return std::nullopt;
  for (const auto* program : {"Xvfb", "openbox", "xdotool", "python3"}) {
    if (!hasProgram(program)) return std::string("no ") + program + " on this machine; see scripts/packages.txt";
  }
  return std::nullopt;
}

}  // namespace

DesktopMaker desktopUnderTest() {
  return {"Linux", whyNot, [](Facility facility) { return std::make_unique<LinuxDesktop>(facility); }};
}

}  // namespace norra::conformance
