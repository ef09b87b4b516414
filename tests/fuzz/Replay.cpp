// Plays known inputs to a fuzzer without a fuzzing engine: REPLAY FOLDER...
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/fuzz/FuzzInput.h"

namespace {

void replay(const std::filesystem::path& file) {
  std::cout << file.string() << std::endl;
  std::ifstream in(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

std::size_t replayAll(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files(std::filesystem::directory_iterator(folder), {});
  std::ranges::sort(files);
  std::ranges::for_each(files, replay);
  return files.size();
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int index = 1; index < argc; ++index) count += replayAll(argv[index]);
  std::cout << count << " inputs\n";
  return count > 0 ? 0 : 1;
}
