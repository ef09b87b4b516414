#include "Platform/Linux/x11/X11WindowFacts.h"

#include <unistd.h>
#include <xcb/res.h>

namespace norra::linux_desktop {
namespace {

std::string hostName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : std::string();
}

// WM_CLASS is two texts, each with a null byte behind it.
void readClass(const std::string& property, ApplicationWindow& traits) {
  const auto end = property.find('\0');
  traits.instanceName = property.substr(0, end);
  if (end != std::string::npos) traits.className = property.substr(end + 1, property.find('\0', end + 1) - end - 1);
}

ProcessIdentifier processIn(const X11Reply<&xcb_res_query_client_ids_reply>& reply) {
  if (!reply) return 0;
  for (auto id = xcb_res_query_client_ids_ids_iterator(reply.get()); id.rem > 0; xcb_res_client_id_value_next(&id)) {
    const bool isProcess = (id.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
    if (isProcess && id.data->length >= sizeof(std::uint32_t)) {
      return static_cast<ProcessIdentifier>(*xcb_res_client_id_value_value(id.data));
    }
  }
  return 0;
}

ShadowExtents shadowIn(const X11PropertyReply& property) {
  const auto items = itemsOf(property);
  if (items.size() != 4) return {};
  return {double(items[0]), double(items[1]), double(items[2]), double(items[3])};
}

ScreenRectangle rectangle(std::int16_t x, std::int16_t y, const xcb_get_geometry_reply_t& size) {
  const auto border = 2.0 * size.border_width;
  return {double(x), double(y), size.width + border, size.height + border};
}

}  // namespace

/// The server knows the process at the other end of a socket, and so is never deceived; for a client that came another
/// way, the window's own word counts if it is from this machine.
struct X11WindowFacts::ProcessRequest {
  xcb_res_query_client_ids_cookie_t owner{};
  xcb_get_property_cookie_t claimedProcess{};
  xcb_get_property_cookie_t machine{};
};

X11WindowFacts::X11WindowFacts(X11Connection& connection) : connection_(connection) {
  if (!connection_.supports(xcb_res_id)) return;
  const auto version = connection_.await<&xcb_res_query_version_reply>(xcb_res_query_version(connection_.get(), 1, 2));
  serverKnowsProcesses_ = version && (version->server_major > 1 || version->server_minor >= 2);
}

X11WindowFacts::ProcessRequest X11WindowFacts::askProcess(xcb_window_t window) {
  ProcessRequest request;
  if (serverKnowsProcesses_) {
    const xcb_res_client_id_spec_t owner{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    request.owner = xcb_res_query_client_ids(connection_.get(), 1, &owner);
  }
  request.claimedProcess = connection_.askProperty(window, X11Atom::netWindowManagerProcess);
  request.machine = connection_.askProperty(window, X11Atom::windowManagerClientMachine);
  return request;
}

ProcessIdentifier X11WindowFacts::awaitProcess(const ProcessRequest& request) {
  static const auto thisMachine = hostName();
  ProcessIdentifier known = 0;
  if (serverKnowsProcesses_) known = processIn(connection_.await<&xcb_res_query_client_ids_reply>(request.owner));
  const auto claimed = firstItemOf(connection_.await<&xcb_get_property_reply>(request.claimedProcess));
  const auto machine = textOf(connection_.await<&xcb_get_property_reply>(request.machine));
  if (known > 0) return known;
  return claimed && machine == thisMachine ? static_cast<ProcessIdentifier>(*claimed) : 0;
}

std::vector<ApplicationWindow> X11WindowFacts::traitsOf(const std::vector<xcb_window_t>& windows) {
  struct Request {
    ProcessRequest process;
    xcb_get_property_cookie_t classes{};
    xcb_get_property_cookie_t gtkIdentifier{};
    xcb_get_property_cookie_t kdeFile{};
  };
  std::vector<Request> requests;
  for (const auto window : windows) {
    requests.push_back({askProcess(window), connection_.askProperty(window, X11Atom::windowManagerClass),
                        connection_.askProperty(window, X11Atom::gtkApplicationIdentifier),
                        connection_.askProperty(window, X11Atom::kdeDesktopFile)});
  }
  std::vector<ApplicationWindow> all;
  for (const auto& request : requests) {
    auto& traits = all.emplace_back();
    traits.window = windows[all.size() - 1];
    traits.process = awaitProcess(request.process);
    readClass(textOf(connection_.await<&xcb_get_property_reply>(request.classes)), traits);
    traits.gtkApplicationIdentifier = textOf(connection_.await<&xcb_get_property_reply>(request.gtkIdentifier));
    traits.kdeDesktopFile = textOf(connection_.await<&xcb_get_property_reply>(request.kdeFile));
  }
  return all;
}

std::optional<WindowOnScreen> X11WindowFacts::describe(X11TopLevel topLevel) {
  auto* const server = connection_.get();
  const auto process = askProcess(topLevel.client);
  const auto frameRequest = xcb_get_geometry(server, topLevel.frame);
  const auto clientRequest = xcb_get_geometry(server, topLevel.client);
  const auto originRequest = xcb_translate_coordinates(server, topLevel.client, connection_.root(), 0, 0);
  const auto attributesRequest = xcb_get_window_attributes(server, topLevel.client);
  const auto shadowRequest = connection_.askProperty(topLevel.client, X11Atom::gtkFrameExtents);
  const auto nameRequest = connection_.askProperty(topLevel.client, X11Atom::netWindowManagerName);
  const auto plainNameRequest = connection_.askProperty(topLevel.client, X11Atom::windowManagerName);

  WindowOnScreen window;
  window.window = topLevel.client;
  window.process = awaitProcess(process);
  const auto frame = connection_.await<&xcb_get_geometry_reply>(frameRequest);
  const auto client = connection_.await<&xcb_get_geometry_reply>(clientRequest);
  const auto origin = connection_.await<&xcb_translate_coordinates_reply>(originRequest);
  const auto attributes = connection_.await<&xcb_get_window_attributes_reply>(attributesRequest);
  window.shadow = shadowIn(connection_.await<&xcb_get_property_reply>(shadowRequest));
  window.title = textOf(connection_.await<&xcb_get_property_reply>(nameRequest));
  const auto plainName = textOf(connection_.await<&xcb_get_property_reply>(plainNameRequest));
  if (!frame || !client || !origin || !attributes) return std::nullopt;
  if (window.title.empty()) window.title = plainName;
  window.frame = rectangle(frame->x, frame->y, *frame);
  window.client = {double(origin->dst_x), double(origin->dst_y), double(client->width), double(client->height)};
  window.overrideRedirect = attributes->override_redirect != 0;
  return window;
}

}  // namespace norra::linux_desktop
