// A connection to the X server that survives whatever the windows of others do: a request about a window that has gone
// gives nothing, an answer that does not come gives nothing after a bound, and a lost server is a state, not an end.
#pragma once

#include <xcb/xcb.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace norra::linux_desktop {

/// The names that the X server gives numbers to.
enum class X11Atom : std::size_t {
  gtkApplicationIdentifier,
  gtkFrameExtents,
  kdeDesktopFile,
  netActiveWindow,
  netClientListStacking,
  netSupportingWindowManagerCheck,
  netWindowManagerName,
  netWindowManagerProcess,
  utf8String,
  windowManagerClass,
  windowManagerClientMachine,
  windowManagerName,
  windowManagerState,
};

/// In the order of X11Atom.
inline constexpr std::array<std::string_view, 13> x11AtomNames{
    "_GTK_APPLICATION_ID",
    "_GTK_FRAME_EXTENTS",
    "_KDE_NET_WM_DESKTOP_FILE",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "UTF8_STRING",
    "WM_CLASS",
    "WM_CLIENT_MACHINE",
    "WM_NAME",
    "WM_STATE",
};
static_assert(x11AtomNames.size() == static_cast<std::size_t>(X11Atom::windowManagerState) + 1);

struct Free {
  void operator()(void* memory) const noexcept { std::free(memory); }
};

template <auto function>
struct X11ReplyFunction;

template <typename ReplyType, typename CookieType,
          ReplyType* (*function)(xcb_connection_t*, CookieType, xcb_generic_error_t**)>
struct X11ReplyFunction<function> {
  using Reply = ReplyType;
  using Cookie = CookieType;
};

/// The answer that one of xcb's ..._reply functions gives; null where there is none.
template <auto function>
using X11Reply = std::unique_ptr<typename X11ReplyFunction<function>::Reply, Free>;

using X11PropertyReply = X11Reply<&xcb_get_property_reply>;

/// One thread at a time.
class X11Connection {
 public:
  /// Null when there is no such X server. Empty: the display that the environment names.
  static std::unique_ptr<X11Connection> open(const std::string& display = {});

  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;

  xcb_connection_t* get() const { return connection_.get(); }
  xcb_window_t root() const { return root_; }
  xcb_atom_t atom(X11Atom atom) const { return atoms_[static_cast<std::size_t>(atom)]; }

  /// Whether the server has gone. Nothing can be asked any more then.
  bool isLost() const { return xcb_connection_has_error(get()) != 0; }

  bool supports(xcb_extension_t& extension) const;

  /// Waits for the answer to a request that was made on this connection; null for an error or at the end of the bound.
  /// After a bound was reached no answer is waited for during a rest, so that many requests cost the bound once.
  template <auto function>
  X11Reply<function> await(typename X11ReplyFunction<function>::Cookie request) {
    return X11Reply<function>(static_cast<typename X11ReplyFunction<function>::Reply*>(awaitReply(request.sequence)));
  }

  /// False: the end came before any input.
  bool waitForInput(std::chrono::steady_clock::time_point end) const;

  xcb_get_property_cookie_t askProperty(xcb_window_t window, X11Atom property) const;

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const noexcept { xcb_disconnect(connection); }
  };
  using ConnectionPtr = std::unique_ptr<xcb_connection_t, Disconnect>;

  X11Connection(ConnectionPtr connection, int screen);
  void internAtoms();
  void* awaitReply(unsigned int sequence);

  ConnectionPtr connection_;
  xcb_window_t root_ = XCB_NONE;
  std::array<xcb_atom_t, x11AtomNames.size()> atoms_{};
  std::chrono::steady_clock::time_point endOfRest_{};
};

/// A property's 32-bit items; empty where it is absent or of another format.
std::vector<std::uint32_t> itemsOf(const X11PropertyReply& property);
/// The first of a property's 32-bit items.
std::optional<std::uint32_t> firstItemOf(const X11PropertyReply& property);
/// A property's bytes as a UTF-8 text, null bytes in it included; empty where it is absent.
std::string textOf(const X11PropertyReply& property);

}  // namespace norra::linux_desktop
