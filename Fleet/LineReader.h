// Lines from a pipe or a file, as they come.
#pragma once

#include <functional>
#include <string>

#include "Platform/Linux/runtime/EventLoop.h"

namespace norra::fleet {

/// Main thread.
class LineReader {
 public:
  struct Events {
    std::function<void(const std::string& line)> line;
    /// Nothing follows. Once.
    Job end;
  };

  /// `loop` outlives this; `descriptor` is not owned.
  LineReader(linux_desktop::EventLoop& loop, int descriptor, Events events);
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

 private:
  void read();
  static int onReadable(sd_event_source* source, int descriptor, std::uint32_t events, void* self) noexcept;
  static int onTurn(sd_event_source* source, void* self) noexcept;

  const int descriptor_;
  const Events events_;
  std::string rest_;  // of a line whose end has not come
  linux_desktop::EventSourcePtr source_;
};

}  // namespace norra::fleet
