#include "Client/ReaderWatch.h"

#include <utility>

namespace norra {
namespace {

/// An error and a hang-up are always told.
constexpr std::uint32_t nothingElse = 0;

}  // namespace

ReaderWatch::ReaderWatch(linux_desktop::EventLoop& loop, int descriptor, Job readerHasGone)
    : readerHasGone_(std::move(readerHasGone)) {
  sd_event_source* source = nullptr;
  sd_event_add_io(loop.event(), &source, descriptor, nothingElse, onGone, this);
  source_.reset(source);
}

int ReaderWatch::onGone(sd_event_source* source, int, std::uint32_t, void* self) noexcept {
  sd_event_source_set_enabled(source, SD_EVENT_OFF);
  static_cast<ReaderWatch*>(self)->readerHasGone_();
  return 0;
}

}  // namespace norra
