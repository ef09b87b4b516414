// Lines for a file, a pipe or a terminal.
//
// Reports may be read while they are written, by a program that takes each line for one report. So a line is written in
// one piece, and where a disk is full in the middle of one, what is missing comes first when there is room again.
#pragma once

#include <string>
#include <string_view>

namespace norra {

/// Writes each line whole and at once. When a line could be written in part only, its rest goes before the next one, so
/// that no line is torn.
class LineWriter {
 public:
  struct Opened {
    int descriptor = -1;  // negative where it cannot be opened
    std::string problem;  // then: why
  };
  /// Appends to the file. A new one is for its owner alone. A last line without an end gets one.
  static Opened open(const std::string& path);

  /// `descriptor` is not owned.
  explicit LineWriter(int descriptor) : descriptor_(descriptor) {}

  /// 0, or the errno for which the line, or some of what was to come before it, could not be written. A line of which
  /// nothing could be written is lost.
  int write(std::string_view line);

  /// Whether it is an empty file, or not a file.
  bool isAtBeginning() const;

 private:
  int writeRest();

  const int descriptor_;
  std::string rest_;
};

}  // namespace norra
