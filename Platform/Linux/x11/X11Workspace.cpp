#include "Platform/Linux/x11/X11Workspace.h"

#include <utility>
#include <vector>

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t titleStands = 250'000;  // microseconds
constexpr int maxTitleChecks = 4;
constexpr std::size_t maxKnown = 4096;

void selectEvents(X11Connection& connection, xcb_window_t window, std::uint32_t events) {
  xcb_change_window_attributes(connection.get(), window, XCB_CW_EVENT_MASK, &events);
  xcb_flush(connection.get());
}

}  // namespace

/// Ends the calls of one handler.
class X11Workspace::ActivationRegistration final : public Registration {
 public:
  ActivationRegistration(const std::shared_ptr<Handlers>& handlers, std::uint64_t handler)
      : handlers_(handlers), handler_(handler) {}
  ~ActivationRegistration() override {
    if (const auto handlers = handlers_.lock()) handlers->erase(handler_);
  }

 private:
  std::weak_ptr<Handlers> handlers_;
  std::uint64_t handler_;
};

X11Workspace::X11Workspace(sd_event* event, std::unique_ptr<X11Connection> connection, X11Windows& windows,
                           std::function<void()> didLoseServer)
    : windows_(windows),
      connection_(std::move(connection)),
      titleCheck_(event, [this] { checkTitle(); }),
      source_(
          event, *connection_, [this](const auto& received) { handle(received); },
          [didLoseServer = std::move(didLoseServer)] {
            platformLogger().error("The X server has gone: application switches are not seen any more");
            didLoseServer();
          }) {
  selectEvents(*connection_, connection_->root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
  followWindowManager();
  if (const auto active = windows_.activeApplication()) active_ = {active->window, active->process};
  known_.insert(active_);
}

std::optional<NSRunningApplication> X11Workspace::frontmostApplication() const {
  const auto active = windows_.activeApplication();
  return active ? applications_.applicationOf(*active) : std::nullopt;
}

std::optional<NSRunningApplication> X11Workspace::runningApplication(ProcessIdentifier process) const {
  return applications_.application(process);
}

std::unique_ptr<Registration> X11Workspace::onActivation(ActivationHandler handler) {
  reportHeld();  // it was before the registration
  const auto number = nextHandler_++;
  handlers_->emplace(number, std::move(handler));
  return std::make_unique<ActivationRegistration>(handlers_, number);
}

void X11Workspace::handle(const xcb_generic_event_t& event) {
  switch (event.response_type & 0x7F) {
    case XCB_PROPERTY_NOTIFY: {
      const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      if (notice.window == connection_->root()) handleRootProperty(notice.atom);
      break;
    }
    case XCB_DESTROY_NOTIFY: followWindowManager(); break;
    default: break;
  }
}

void X11Workspace::handleRootProperty(xcb_atom_t property) {
  if (property == connection_->atom(X11Atom::netClientListStacking)) applications_.windowsDidChange();
  if (property == connection_->atom(X11Atom::netSupportingWindowManagerCheck)) followWindowManager();
  if (property == connection_->atom(X11Atom::netActiveWindow)) activeWindowDidChange();
}

void X11Workspace::followWindowManager() {
  watchWindowManager();
  const bool isThere = windows_.hasWindowManager();
  if (std::exchange(hasWindowManager_, isThere) == isThere) return;
  if (isThere) return platformLogger().info("A window manager is there: application switches are seen");
  platformLogger().error(
      "No window manager tells which window is active (_NET_SUPPORTING_WM_CHECK): application switches are not seen. "
      "Start a window manager such as openbox");
}

// A window manager that is killed leaves its property behind, but not its window.
void X11Workspace::watchWindowManager() {
  const auto request = connection_->askProperty(connection_->root(), X11Atom::netSupportingWindowManagerCheck);
  const auto window = firstItemOf(connection_->await<&xcb_get_property_reply>(request));
  if (window) selectEvents(*connection_, *window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

void X11Workspace::activeWindowDidChange() {
  if (!hasWindowManager_) followWindowManager();
  applications_.windowsDidChange();
  const auto active = windows_.activeApplication();
  const auto now = active ? ActiveWindow{active->window, active->process} : ActiveWindow{};
  if (std::exchange(active_, now) == now || !active) return;
  reportHeld();
  const bool hasGoneAgain = active->process == 0 && active->className.empty();
  if (hasGoneAgain) return;
  if (known_.size() >= maxKnown) known_.clear();
  if (known_.insert(now).second) return hold(*active);
  report(applications_.applicationOf(*active));
}

void X11Workspace::hold(const ApplicationWindow& window) {
  const auto active = windows_.activeWindow();
  held_ = Held{window, active ? active->title : std::string(), maxTitleChecks};
  titleCheck_.requestAfter(titleStands);
}

void X11Workspace::checkTitle() {
  if (!held_) return;
  const auto active = windows_.activeWindow();
  auto title = active && active->window == held_->window.window ? active->title : held_->title;
  const bool stands = !title.empty() && title == std::exchange(held_->title, title);
  if (stands || --held_->checksLeft == 0) return reportHeld();
  titleCheck_.requestAfter(titleStands);
}

// What the window says of its application may have come late too.
void X11Workspace::reportHeld() {
  const auto held = std::exchange(held_, std::nullopt);
  if (!held) return;
  const auto now = windows_.applicationOf(held->window.process);
  report(applications_.applicationOf(now && now->window == held->window.window ? *now : held->window));
}

// A handler may end its registration, or others.
void X11Workspace::report(const std::optional<NSRunningApplication>& application) {
  std::vector<std::uint64_t> numbers;
  for (const auto& [number, handler] : *handlers_) numbers.push_back(number);
  for (const auto number : numbers) {
    const auto handler = handlers_->find(number);
    if (handler == handlers_->end()) continue;
    const auto call = handler->second;
    call(application);
  }
}

}  // namespace norra::linux_desktop
