#include "NorraDataCollector/model/ActionEncoding.h"

#include <array>
#include <charconv>
#include <cstring>

#include "NorraDataCollector/model/ActionFields.h"

namespace norra {
namespace {

/// How many bytes each byte of a text takes inside a JSON string.
constexpr std::array<std::uint8_t, 256> escapedSizes = [] {
  std::array<std::uint8_t, 256> sizes{};
  for (std::size_t byte = 0; byte < sizes.size(); ++byte) sizes[byte] = byte < 0x20 ? 6 : 1;
  for (const char escaped : {'"', '\\', '/', '\b', '\f', '\n', '\r', '\t'}) {
    sizes[static_cast<unsigned char>(escaped)] = 2;
  }
  return sizes;
}();

constexpr char shortEscape(char byte) {
  switch (byte) {
    case '\b': return 'b';
    case '\f': return 'f';
    case '\n': return 'n';
    case '\r': return 'r';
    case '\t': return 't';
    default: return byte;
  }
}

/// Adds up the size that the same calls will write.
class SizeCounter {
 public:
  void literal(std::string_view text) { size_ += text.size(); }
  void escaped(std::string_view text) {
    for (const unsigned char byte : text) size_ += escapedSizes[byte];
  }
  std::size_t size() const { return size_; }

 private:
  std::size_t size_ = 0;
};

/// Writes into a buffer that is large enough.
class BufferWriter {
 public:
  explicit BufferWriter(char* position) : position_(position) {}

  void literal(std::string_view text) {
    std::memcpy(position_, text.data(), text.size());
    position_ += text.size();
  }

  void escaped(std::string_view text) {
    for (const char byte : text) {
      switch (escapedSizes[static_cast<unsigned char>(byte)]) {
        case 1: *position_++ = byte; break;
        case 2:
          *position_++ = '\\';
          *position_++ = shortEscape(byte);
          break;
        default: controlCharacter(byte);
      }
    }
  }

 private:
  void controlCharacter(char byte) {
    literal("\\u00");
    *position_++ = static_cast<char>('0' + (byte >> 4));
    *position_++ = "0123456789abcdef"[byte & 15];
  }

  char* position_;
};

template <typename Output>
class JSONWriter {
 public:
  explicit JSONWriter(Output& output) : output_(output) {}

  void begin(CodingKeys key) {
    output_.literal("{\"action\":");
    write(key);
  }

  template <typename Value>
  void member(std::string_view name, const Value& value) {
    output_.literal(",\"");
    output_.literal(name);
    output_.literal("\":");
    write(value);
  }

  template <typename Value>
  void member(std::string_view name, const std::optional<Value>& value) {
    if (value) member(name, *value);
  }

  void end() { output_.literal("}"); }

 private:
  template <typename Enumeration>
  requires requires(Enumeration value) { rawValue(value); }
  void write(Enumeration value) {
    output_.literal("\"");
    output_.literal(rawValue(value));
    output_.literal("\"");
  }

  void write(const std::string& text) {
    output_.literal("\"");
    output_.escaped(text);
    output_.literal("\"");
  }

  void write(const URL& url) { write(url.absoluteString); }
  void write(ToggleState state) { write(static_cast<std::int32_t>(state)); }

  void write(std::int32_t number) {
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    output_.literal({digits.data(), static_cast<std::size_t>(end - digits.data())});
  }

  Output& output_;
};

template <typename Output>
struct ActionWriter {
  JSONWriter<Output> json;

  template <typename Data>
  void operator()(const Data& data) {
    json.begin(data.action);
    forEachField<Data>([&](const auto& field) { json.member(field.name, data.*field.member); });
    json.end();
  }
};

template <typename Output>
void write(const Action& action, Output& output) {
  std::visit(ActionWriter<Output>{JSONWriter<Output>(output)}, action);
}

}  // namespace

std::string encode(const Action& action) {
  SizeCounter counter;
  write(action, counter);
  std::string text(counter.size(), '\0');
  BufferWriter writer(text.data());
  write(action, writer);
  return text;
}

}  // namespace norra
