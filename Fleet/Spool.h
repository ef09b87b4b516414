// What was read and may not have arrived yet, in memory and in a file.
//
// The file is what a crash, a logout or a broker that is away for long leaves of it, and holds the same lines. A disk
// that is full costs nothing while the process lives: what the file misses is written when there is room.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <variant>

namespace norra::fleet {

/// Lines by numbers that grow by one. A bound in bytes: the oldest lines give way to new ones.
class Spool {
 public:
  using Number = std::uint64_t;

  /// Takes over what an earlier process left in the folder, which is made for its owner alone. Why not, when it cannot
  /// be used or another process has it.
  static std::variant<Spool, std::string> open(const std::string& folder, std::size_t maxBytes);
  Spool(Spool&& other) noexcept;
  Spool& operator=(Spool&&) = delete;
  ~Spool();

  /// How many lines had to give way.
  std::size_t append(std::string line);
  Number begin() const { return first_; }
  Number end() const { return first_ + lines_.size(); }
  const std::string& operator[](Number number) const { return lines_[number - first_]; }
  /// Forgets the lines before this one.
  void releaseBefore(Number number);
  /// Sees to it that every line is on the disk: 0, or the errno for which some are not.
  int save();

 private:
  Spool(int folder, int file, std::size_t maxBytes) : folder_(folder), file_(file), maxBytes_(maxBytes) {}
  void load();
  int writeMissing();
  int leaveOutReleased();
  int writeAnew();

  int folder_;  // locked
  int file_;
  std::size_t maxBytes_;
  std::deque<std::string> lines_;
  Number first_ = 0;
  std::size_t bytes_ = 0;
  Number saved_ = 0;            // the first line that is not in the file
  std::size_t fileSize_ = 0;    // of whole lines
  std::size_t staleBytes_ = 0;  // of released lines in the file
  bool isSynchronized_ = true;
};

}  // namespace norra::fleet
