#include "Platform/Linux/x11/X11ClickPlaces.h"

#include <xcb/record.h>
#include <xcb/xcbext.h>

#include <cstring>
#include <utility>

namespace norra::linux_desktop {
namespace {

constexpr std::chrono::milliseconds recordLimit{5};
constexpr std::uint8_t fromServer = 0;
constexpr std::size_t eventSize = 32;

// Times of the server begin anew after 50 days.
bool isBefore(xcb_timestamp_t left, xcb_timestamp_t right) { return static_cast<std::int32_t>(left - right) < 0; }

}  // namespace

std::unique_ptr<X11ClickPlaces> X11ClickPlaces::open() {
  auto records = X11Connection::open();
  auto control = X11Connection::open();
  if (!records || !control || !control->supports(xcb_record_id) || !records->supports(xcb_record_id)) return nullptr;
  return std::unique_ptr<X11ClickPlaces>(new X11ClickPlaces(std::move(records), std::move(control)));
}

X11ClickPlaces::X11ClickPlaces(std::unique_ptr<X11Connection> records, std::unique_ptr<X11Connection> control)
    : records_(std::move(records)), control_(std::move(control)) {
  const auto context = xcb_generate_id(control_->get());
  const xcb_record_client_spec_t clients = XCB_RECORD_CS_ALL_CLIENTS;
  xcb_record_range_t range{};
  range.device_events = {XCB_BUTTON_RELEASE, XCB_BUTTON_RELEASE};
  xcb_record_create_context(control_->get(), context, 0, 1, 1, &clients, &range);
  control_->await<&xcb_get_input_focus_reply>(xcb_get_input_focus(control_->get()));
  request_ = xcb_record_enable_context(records_->get(), context).sequence;
  xcb_flush(records_->get());
}

std::optional<CGPoint> X11ClickPlaces::takePlaceAt(xcb_timestamp_t time) {
  const auto end = std::chrono::steady_clock::now() + recordLimit;
  do {
    readRecords();
    while (!releases_.empty() && isBefore(releases_.front().time, time)) releases_.pop_front();
  } while (releases_.empty() && records_->waitForInput(end));
  if (releases_.empty() || releases_.front().time != time) return std::nullopt;
  const auto place = releases_.front().place;
  releases_.pop_front();
  return place;
}

void X11ClickPlaces::readRecords() {
  void* reply = nullptr;
  xcb_generic_error_t* error = nullptr;
  while (xcb_poll_for_reply(records_->get(), request_, &reply, &error) != 0) {
    const std::unique_ptr<xcb_record_enable_context_reply_t, Free> record(
        static_cast<xcb_record_enable_context_reply_t*>(std::exchange(reply, nullptr)));
    std::free(std::exchange(error, nullptr));
    if (!record) return;
    if (record->category != fromServer) continue;
    add(xcb_record_enable_context_data(record.get()),
        static_cast<std::size_t>(xcb_record_enable_context_data_length(record.get())));
  }
}

void X11ClickPlaces::add(const std::uint8_t* events, std::size_t size) {
  for (; size >= eventSize; events += eventSize, size -= eventSize) {
    xcb_button_release_event_t release;
    std::memcpy(&release, events, eventSize);
    releases_.push_back({release.time, {double(release.root_x), double(release.root_y)}});
  }
}

}  // namespace norra::linux_desktop
