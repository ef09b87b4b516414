#include "Platform/Linux/x11/X11Workspace.h"

#include <utility>

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

// Returns when the server has done so: who looks then whether the window is there is told if it goes later.
void selectEvents(X11Connection& connection, xcb_window_t window, std::uint32_t events) {
  const auto request = xcb_change_window_attributes_checked(connection.get(), window, XCB_CW_EVENT_MASK, &events);
  const std::unique_ptr<xcb_generic_error_t, Free> error(xcb_request_check(connection.get(), request));
}

}  // namespace

X11Workspace::X11Workspace(sd_event* event, std::unique_ptr<X11Connection> connection, X11Windows& windows,
                           std::function<void()> didLoseServer)
    : windows_(windows),
      connection_(std::move(connection)),
      activations_(event, windows),
      source_(
          event, *connection_, [this](const auto& received) { handle(received); },
          [didLoseServer = std::move(didLoseServer)] {
            platformLogger().error("The X server has gone: application switches are not seen any more");
            didLoseServer();
          }) {
  selectEvents(*connection_, connection_->root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
  followWindowManager();
  activations_.begin();
}

std::optional<NSRunningApplication> X11Workspace::frontmostApplication() const { return activations_.frontmost(); }

std::optional<NSRunningApplication> X11Workspace::runningApplication(ProcessIdentifier process) const {
  return activations_.application(process);
}

std::unique_ptr<Registration> X11Workspace::onActivation(ActivationHandler handler) {
  return activations_.onActivation(std::move(handler));
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
  if (property == connection_->atom(X11Atom::netClientListStacking)) activations_.windowsDidChange();
  if (property == connection_->atom(X11Atom::netSupportingWindowManagerCheck)) followWindowManager();
  if (property != connection_->atom(X11Atom::netActiveWindow)) return;
  if (!hasWindowManager_) followWindowManager();
  activations_.windowsDidChange();
  activations_.frontMayHaveChanged();
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

}  // namespace norra::linux_desktop
