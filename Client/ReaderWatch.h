// Whether anybody still reads what is written. Without it a collection that writes into a pipe would go on until the
// next report, which may be hours later.
#pragma once

#include "Platform/Linux/runtime/EventLoop.h"

namespace norra {

/// Runs a job once when the reader of a pipe or a terminal has gone, before anything more is written to it. A file has
/// no reader that could go. Main thread.
class ReaderWatch {
 public:
  ReaderWatch(linux_desktop::EventLoop& loop, int descriptor, Job readerHasGone);
  ReaderWatch(const ReaderWatch&) = delete;
  ReaderWatch& operator=(const ReaderWatch&) = delete;

 private:
  static int onGone(sd_event_source* source, int descriptor, std::uint32_t events, void* watch) noexcept;

  Job readerHasGone_;
  linux_desktop::EventSourcePtr source_;
};

}  // namespace norra
