
#include "Client/ReportOutput.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace norra {

ReportOutput::ReportOutput(int descriptor, OutputOptions options, Message message)
    : options_(std::move(options)),
      message_(std::move(message)),
      writer_(descriptor),
      filter_(options_.wanted),
      format_(newFormatter(options_.format, options_.formatting)) {
  if (writer_.isAtBeginning()) head_ = headOf(options_.format);
  writeHead();
}

int ReportOutput::writeHead() {
  const bool isDue = !head_.empty() && writer_.isAtBeginning();
  const int error = isDue ? writer_.write(head_) : 0;
  if (error == 0) head_.clear();
  return error;
}

Reception ReportOutput::print(const Report& report) {
  if (!filter_.wants(report)) return Reception::goOn;
  const int error = writeHead();
  return received(error != 0 ? error : writer_.write(format_(report)));
}

Reception ReportOutput::received(int error) {
  if (error == EPIPE) return Reception::closed;
  if (error != 0) {
    noteLoss(error);
    return Reception::goOn;
  }
  if (const auto lost = std::exchange(lost_, 0); lost > 0) {
    message_(options_.name + " can be written again. Reports lost: " + std::to_string(lost) + ".");
  }
  return ++printed_ == options_.count ? Reception::enough : Reception::goOn;
}

bool ReportOutput::end() {
  if (lost_ > 0) message_("Reports lost at the end: " + std::to_string(lost_) + ".");
  return !hasLost_;
}

void ReportOutput::noteLoss(int error) {
  hasLost_ = true;
  if (++lost_ > 1) return;
  message_(options_.name + " cannot be written (" + std::strerror(error) +
           "). Collection goes on; reports are lost until it can.");
}

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
