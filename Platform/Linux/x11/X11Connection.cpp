#include "Platform/Linux/x11/X11Connection.h"

#include <glib.h>
#include <poll.h>
#include <xcb/xcbext.h>

#include <chrono>
#include <utility>

namespace norra::linux_desktop {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds answerLimit{250};
constexpr std::chrono::seconds restAfterSilence{1};
constexpr std::uint32_t longestProperty = 4096;  // in units of four bytes

xcb_window_t rootOfScreen(xcb_connection_t* connection, int number) {
  auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection));
  while (number-- > 0 && screen.rem > 1) xcb_screen_next(&screen);
  return screen.data->root;
}

std::string fromLatin1(std::string_view bytes) {
  std::string text;
  for (const unsigned char byte : bytes) {
    if (byte < 0x80) {
      text += static_cast<char>(byte);
    } else {
      text += {static_cast<char>(0xC0 | (byte >> 6)), static_cast<char>(0x80 | (byte & 0x3F))};
    }
  }
  return text;
}

std::string validUTF8(std::string_view bytes) {
  const std::unique_ptr<char, decltype(&g_free)> valid(
      g_utf8_make_valid(bytes.data(), static_cast<gssize>(bytes.size())), g_free);
  return valid.get();
}

}  // namespace

std::unique_ptr<X11Connection> X11Connection::open(const std::string& display) {
  int screen = 0;
  ConnectionPtr connection(xcb_connect(display.empty() ? nullptr : display.c_str(), &screen));
  if (xcb_connection_has_error(connection.get()) != 0) return nullptr;
  return std::unique_ptr<X11Connection>(new X11Connection(std::move(connection), screen));
}

X11Connection::X11Connection(ConnectionPtr connection, int screen)
    : connection_(std::move(connection)), root_(rootOfScreen(get(), screen)) {
  internAtoms();
}

void X11Connection::internAtoms() {
  std::array<xcb_intern_atom_cookie_t, x11AtomNames.size()> requests{};
  for (std::size_t i = 0; i < requests.size(); ++i) {
    requests[i] = xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(x11AtomNames[i].size()), x11AtomNames[i].data());
  }
  for (std::size_t i = 0; i < requests.size(); ++i) {
    if (const auto reply = await<&xcb_intern_atom_reply>(requests[i])) atoms_[i] = reply->atom;
  }
}

bool X11Connection::waitForInput(Clock::time_point end) const {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
  if (left <= 0) return false;
  pollfd input{xcb_get_file_descriptor(get()), POLLIN, 0};
  return poll(&input, 1, static_cast<int>(left)) != 0;
}

void* X11Connection::awaitReply(unsigned int sequence) {
  xcb_flush(get());
  const auto begin = Clock::now();
  const auto end = begin < endOfRest_ ? begin : begin + answerLimit;
  void* reply = nullptr;
  xcb_generic_error_t* error = nullptr;
  while (xcb_poll_for_reply(get(), sequence, &reply, &error) == 0) {
    if (waitForInput(end)) continue;
    xcb_discard_reply(get(), sequence);
    if (begin >= endOfRest_) endOfRest_ = end + restAfterSilence;
    return nullptr;
  }
  std::free(error);
  return reply;
}

bool X11Connection::supports(xcb_extension_t& extension) const {
  const auto* data = xcb_get_extension_data(get(), &extension);
  return data != nullptr && data->present != 0;
}

xcb_get_property_cookie_t X11Connection::askProperty(xcb_window_t window, X11Atom property) const {
  return xcb_get_property(get(), 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
}

std::vector<std::uint32_t> itemsOf(const X11PropertyReply& property) {
  if (!property || property->format != 32) return {};
  const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(property.get()));
  return {items, items + property->value_len};
}

std::optional<std::uint32_t> firstItemOf(const X11PropertyReply& property) {
  const auto items = itemsOf(property);
  if (items.empty()) return std::nullopt;
  return items.front();
}

std::string textOf(const X11PropertyReply& property) {
  if (!property || property->format != 8) return {};
  const std::string_view bytes(static_cast<const char*>(xcb_get_property_value(property.get())),
                               static_cast<std::size_t>(xcb_get_property_value_length(property.get())));
  return property->type == XCB_ATOM_STRING ? fromLatin1(bytes) : validUTF8(bytes);
}

}  // namespace norra::linux_desktop
