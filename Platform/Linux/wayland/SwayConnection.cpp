#include "Platform/Linux/wayland/SwayConnection.h"

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>

namespace norra::linux_desktop {
namespace {

constexpr std::array<char, 6> magic{'i', '3', '-', 'i', 'p', 'c'};
constexpr timeval patience{.tv_sec = 0, .tv_usec = 250'000};
constexpr std::uint32_t maxBytes = 16 << 20;

struct [[gnu::packed]] Header {
  std::array<char, 6> magic;
  std::uint32_t size;
  std::uint32_t kind;
};

bool connectTo(int descriptor, const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.empty() || path.size() >= sizeof(address.sun_path)) return false;
  std::memcpy(static_cast<char*>(address.sun_path), path.data(), path.size());
  return connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

}  // namespace

std::unique_ptr<SwayConnection> SwayConnection::open(const std::string& socketPath) {
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (descriptor < 0) return nullptr;
  std::unique_ptr<SwayConnection> connection(new SwayConnection(descriptor));
  setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof(patience));
  setsockopt(descriptor, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof(patience));
  return connectTo(descriptor, socketPath) ? std::move(connection) : nullptr;
}

SwayConnection::~SwayConnection() { close(descriptor_); }

bool SwayConnection::send(SwayMessage kind, std::string_view payload) {
  const Header header{magic, static_cast<std::uint32_t>(payload.size()), static_cast<std::uint32_t>(kind)};
  std::string message(reinterpret_cast<const char*>(&header), sizeof(header));
  message += payload;
  return ::send(descriptor_, message.data(), message.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(message.size());
}

bool SwayConnection::receiveAll(void* buffer, std::size_t size) {
  return size == 0 || recv(descriptor_, buffer, size, MSG_WAITALL) == static_cast<ssize_t>(size);
}

std::optional<SwayReply> SwayConnection::receive() {
  Header header{};
  if (!receiveAll(&header, sizeof(header)) || header.magic != magic || header.size > maxBytes) return std::nullopt;
  SwayReply reply{static_cast<SwayMessage>(header.kind), std::string(header.size, '\0')};
  if (!receiveAll(reply.payload.data(), header.size)) return std::nullopt;
  return reply;
}

}  // namespace norra::linux_desktop
