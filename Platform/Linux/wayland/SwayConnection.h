// A connection to sway, or to another compositor that speaks as it does: requests with a number for their kind, answers
// and events as JSON texts.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace norra::linux_desktop {

enum class SwayMessage : std::uint32_t {
  subscribe = 2,
  getTree = 4,
  workspaceEvent = 0x80000000,
  windowEvent = 0x80000003,
};

struct SwayReply {
  SwayMessage kind{};
  std::string payload;
};

/// One thread at a time.
class SwayConnection {
 public:
  /// Null: there is no such compositor.
  static std::unique_ptr<SwayConnection> open(const std::string& socketPath);
  ~SwayConnection();
  SwayConnection(const SwayConnection&) = delete;
  SwayConnection& operator=(const SwayConnection&) = delete;

  int descriptor() const { return descriptor_; }

  bool send(SwayMessage kind, std::string_view payload = {});
  /// Nothing: it does not answer in time, or has gone; then it is of no more use.
  std::optional<SwayReply> receive();

 private:
  explicit SwayConnection(int descriptor) : descriptor_(descriptor) {}
  bool receiveAll(void* buffer, std::size_t size);

  const int descriptor_;
};

}  // namespace norra::linux_desktop
