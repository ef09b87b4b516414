// What a program of the benchmark measured, and how it says so.
#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace norra::benchmarks {

/// Durations in microseconds, by the name of what took them.
using Samples = std::map<std::string, std::vector<double>>;

inline double microsecondsSince(std::chrono::steady_clock::time_point begin) {
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count();
}

}  // namespace norra::benchmarks
