// The simulated desktop, asked what every desktop is asked.
#include "Platform/Simulated/Desktop.h"
#include "tests/conformance/ConformanceTest.h"

namespace norra::conformance {
namespace {

using simulated::Attributes;
using simulated::ElementReference;

/// Keeps the reports of one client; may outlive it.
class Reports final : public ClientProtocol {
 public:
  void addEvent(std::string event, std::chrono::system_clock::time_point date, bool isApplicationEvent) override {
    all.push_back({std::move(event), date, isApplicationEvent});
  }
  std::vector<ReceivedReport> all;
};

class Client final : public ServiceClient {
 public:
  Client(simulated::Desktop& desktop, std::string name, bool isUsable)
      : desktop_(desktop), name_(std::move(name)), isUsable_(isUsable) {}

  void call(Operation operation) override {
    if (!desktop_.clients().isConnected(name_)) desktop_.connect(name_, isUsable_ ? reports_ : nullptr);
    desktop_.call(name_, static_cast<simulated::ServiceOperation>(operation),
                  [this](std::string_view reply) { replies_.emplace_back(reply); });
  }
  std::vector<std::string> replies() const override { return replies_; }
  std::vector<ReceivedReport> reports() const override { return reports_->all; }
  void stopReading() override {}
  void readReports(std::size_t) override {}
  void disconnect() override { desktop_.disconnect(name_); }

 private:
  simulated::Desktop& desktop_;
  std::string name_;
  bool isUsable_;
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::vector<std::string> replies_;
};

/// Its elements are called by their process and their name.
class SimulatedDesktop final : public DesktopUnderTest {
 public:
  SimulatedDesktop() {
    desktop_.clients().setLoop([this] {
      desktop_.runReadyJobs();
      return desktop_.process().exitStatus();
    });
  }

  Platform platform() override { return desktop_.platform(); }

  bool serveUntil(const std::function<bool()>& condition) override {
    desktop_.runReadyJobs();
    for (int moment = 0; moment < 1000 && !condition(); ++moment) desktop_.advance(std::chrono::milliseconds(1));
    return condition();
  }

  ProcessIdentifier startApplication(const std::string& title) override {
    const ProcessIdentifier process = ++lastProcess_;
    const auto root = ElementReference{identifier(process, "")};
    const auto window = ElementReference{identifier(process, "window")};
    desktop_.add(window.identifier,
                 {.process = process, .attributes = {{"AXRole", "AXWindow"}, {"AXTitle", title}, {"AXParent", root}}});
    desktop_.add(root.identifier,
                 {.process = process,
                  .attributes = {
                      {"AXRole", "AXApplication"}, {"AXFocusedWindow", window}, {"AXChildren", std::vector{window}}}});
    desktop_.setAttributes(window.identifier, {{"AXParent", root}});
    desktop_.add(simulated::ApplicationDescription{.process = process, .localizedName = title, .element = root});
    return process;
  }
  void endApplication(ProcessIdentifier application) override { desktop_.terminate(application); }
  void activate(ProcessIdentifier application) override { desktop_.activate(application); }

  void addControl(ProcessIdentifier application, ControlKind kind, const std::string& name) override {
    const auto control = ElementReference{identifier(application, name)};
    const bool isButton = kind == ControlKind::button;
    desktop_.add(control.identifier,
                 {.process = application,
                  .attributes = {{"AXRole", isButton ? "AXButton" : "AXTextField"},
                                 {"AXTitle", name},
                                 {"AXParent", ElementReference{identifier(application, "window")}}},
                  .actions = isButton ? std::vector<std::string>{"AXPress"} : std::vector<std::string>{}});
    controls_[application].push_back(control);
    arrange(application);
  }
  void removeControl(ProcessIdentifier application, const std::string& name) override {
    std::erase(controls_[application], ElementReference{identifier(application, name)});
    arrange(application);
    desktop_.destroy(identifier(application, name));
  }
  void setText(ProcessIdentifier application, const std::string& name, const std::string& text) override {
    desktop_.setAttributes(identifier(application, name), {{"AXValue", text}});
    desktop_.notify(identifier(application, name), "AXValueChanged");
  }
  void focus(ProcessIdentifier application, const std::string& name) override {
    const Attributes focus{{"AXFocusedUIElement", ElementReference{identifier(application, name)}}};
    desktop_.setAttributes(identifier(application, ""), focus);
    desktop_.setAttributes(std::string(simulated::systemWideIdentifier), focus);
    desktop_.notify(identifier(application, ""), "AXFocusedUIElementChanged");
  }
  CGPoint middleOf(ProcessIdentifier application, const std::string& name) override {
    const auto& controls = controls_[application];
    const auto found = std::ranges::find(controls, ElementReference{identifier(application, name)});
    return {50, 20.0 * static_cast<double>(found - controls.begin()) + 10};
  }

  void click(CGPoint location) override { desktop_.click(location); }
  void pressKey(char letter) override { press(letter, 0); }
  void pressShortcut(char letter) override { press(letter, modifierFlag::control); }

  std::unique_ptr<ServiceClient> connectClient(bool isUsable) override {
    return std::make_unique<Client>(desktop_, "client " + std::to_string(++clientCount_), isUsable);
  }

 private:
  static std::string identifier(ProcessIdentifier process, const std::string& name) {
    return std::to_string(process) + " " + name;
  }

  void press(char letter, std::uint64_t modifierFlags) {
    desktop_.pressKey(NSEvent{.isARepeat = false,
                              .specialKey = {},
                              .charactersIgnoringModifiers = std::string(1, letter),
                              .modifierFlags = modifierFlags});
  }

  /// One control below the other, each 100 wide and 20 high.
  void arrange(ProcessIdentifier application) {
    const auto& controls = controls_[application];
    desktop_.setAttributes(identifier(application, "window"), {{"AXChildren", controls}});
    simulated::Screen screen;
    for (const auto& control : controls) {
      screen.push_back({{0, 20.0 * static_cast<double>(screen.size()), 100, 20}, control});
    }
    desktop_.setScreen(screen);
  }

  simulated::Desktop desktop_{{.roleDescriptions = {{"AXButton", "button"}}}};
  ProcessIdentifier lastProcess_ = 500;
  std::map<ProcessIdentifier, std::vector<ElementReference>> controls_;
  int clientCount_ = 0;
};

}  // namespace

DesktopMaker desktopUnderTest() {
  return {"Simulated", [](Facility) { return std::nullopt; },
          [](Facility) { return std::make_unique<SimulatedDesktop>(); }};
}

}  // namespace norra::conformance
