#include "Fleet/LineReader.h"

#include <sys/epoll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace norra::fleet {

LineReader::LineReader(linux_desktop::EventLoop& loop, int descriptor, Events events)
    : descriptor_(descriptor), events_(std::move(events)) {
  sd_event_source* source = nullptr;
  if (sd_event_add_io(loop.event(), &source, descriptor, EPOLLIN, onReadable, this) < 0) {  // a file is always readable
    linux_desktop::require(sd_event_add_defer(loop.event(), &source, onTurn, this), "sd_event_add_defer");
    sd_event_source_set_enabled(source, SD_EVENT_ON);
  }
  source_.reset(source);
}

void LineReader::read() {
  std::array<char, 65536> piece{};
  const auto count = ::read(descriptor_, piece.data(), piece.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
  if (count <= 0) {
    source_.reset();
    if (!rest_.empty()) events_.line(std::exchange(rest_, {}));
    return events_.end();
  }
  rest_.append(piece.data(), static_cast<std::size_t>(count));
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = rest_.find('\n', begin)) != std::string::npos; begin = end + 1) {
    events_.line(rest_.substr(begin, end - begin));
  }
  rest_.erase(0, begin);
}

int LineReader::onReadable(sd_event_source*, int, std::uint32_t, void* self) noexcept {
  static_cast<LineReader*>(self)->read();
  return 0;
}

int LineReader::onTurn(sd_event_source*, void* self) noexcept {
  static_cast<LineReader*>(self)->read();
  return 0;
}

}  // namespace norra::fleet
