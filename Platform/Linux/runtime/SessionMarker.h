// What services of one session leave for each other to find, also by a crash: a file in the runtime folder, which goes
// with the session.
#pragma once

#include <string>

namespace norra::linux_desktop {

/// One holder's view of a mark that all holders share. Whoever holds it is known to the others until its process ends,
/// in whatever way; the mark stays until it is cleared. Without a runtime folder there is nobody else.
class SessionMarker {
 public:
  /// Holds the file of this name in XDG_RUNTIME_DIR. Waits for one who clears it for a bounded time.
  explicit SessionMarker(const std::string& name);
  ~SessionMarker();
  SessionMarker(const SessionMarker&) = delete;
  SessionMarker& operator=(const SessionMarker&) = delete;

  bool isSet() const;
  void set();

  /// Whether nobody else holds it; then nobody else can until it is cleared or let go. Otherwise it is let go.
  bool isLastHolder();
  void clear();
  void letGo();

 private:
  int file_ = -1;
};

}  // namespace norra::linux_desktop
