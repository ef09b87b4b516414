// What norra-collect prints: the reports that are wanted, in the format that is wanted, until nobody reads them. A disk
// that is full costs the reports that find no room and does not end the collection; how many they were is said.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "Client/Collection.h"
#include "Client/LineWriter.h"
#include "Client/ReportFilter.h"
#include "Client/formats/ReportFormat.h"
#include "Platform/Linux/runtime/EventLoop.h"

namespace norra {

struct OutputOptions {
  std::string format;
  FormatOptions formatting;
  /// What messages call the output.
  std::string name;
  WantedReports wanted;
  /// The most reports that are printed.
  std::optional<std::uint64_t> count;
};

/// Prints the reports that are wanted. A full disk costs the reports that find no room, and a message.
class ReportOutput {
 public:
  using Message = std::function<void(const std::string& text)>;

  /// `descriptor` is not owned.
  ReportOutput(int descriptor, OutputOptions options, Message message);

  Reception print(const Report& report);

  /// Tells of reports that were lost last. Whether none was lost since the beginning.
  bool end();

 private:
  int writeHead();
  Reception received(int error);
  void noteLoss(int error);

  const OutputOptions options_;
  const Message message_;
  LineWriter writer_;
  ReportFilter filter_;
  ReportFormatter format_;
  std::string head_;  // empty: is written, or there is none
  std::uint64_t printed_ = 0;
  std::uint64_t lost_ = 0;  // since the last one that was printed
  bool hasLost_ = false;
};

// Without it a collection that writes into a pipe would go on until the next report, which may be hours later.

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
