// Where the pointer was when a button was released. Raw input events do not tell it, and by the time that one is read
// the pointer may be elsewhere; what the server records of its devices does.
#pragma once

#include <deque>

#include "Platform/Accessibility.h"
#include "Platform/Linux/x11/X11Connection.h"

namespace norra::linux_desktop {

/// Records while it exists. One thread at a time.
class X11ClickPlaces {
 public:
  /// Null: the server does not record.
  static std::unique_ptr<X11ClickPlaces> open();
  X11ClickPlaces(const X11ClickPlaces&) = delete;
  X11ClickPlaces& operator=(const X11ClickPlaces&) = delete;

  /// Of the next release at this time of the server, and forgets those before. Nothing: it is not known within a bound
  /// that nobody notices.
  std::optional<CGPoint> takePlaceAt(xcb_timestamp_t time);

 private:
  struct Release {
    xcb_timestamp_t time = 0;
    CGPoint place;
  };

  X11ClickPlaces(std::unique_ptr<X11Connection> records, std::unique_ptr<X11Connection> control);
  void readRecords();
  void add(const std::uint8_t* events, std::size_t size);

  const std::unique_ptr<X11Connection> records_;
  const std::unique_ptr<X11Connection> control_;  // goes first, and with it what it made the server record
  unsigned int request_ = 0;
  std::deque<Release> releases_;
};

}  // namespace norra::linux_desktop
