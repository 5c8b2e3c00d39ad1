#include "bench/slow_line.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <set>
#include <system_error>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int stopCheckMs = 50;
constexpr size_t packetBytes = 1460;

int checked(int result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

sockaddr_in addressOf(const QString& host, quint16 port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = inet_addr(host.toLatin1().constData());
  address.sin_port = htons(port);
  return address;
}

int newSocket() {
  const int made = checked(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
  const int on = 1;
  setsockopt(made, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  setsockopt(made, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  return made;
}

/// One way of one connection: what is read is sent when it has arrived at the other end.
class Way {
 public:
  Way(int from, int to, SlowLine::Width width, std::function<void(size_t bytes)> passing)
      : from_(from), to_(to), width_(width), passing_(std::move(passing)), reader_([this] { read(); }), writer_([this] { write(); }) {}
  ~Way() {
    reader_.join();
    writer_.join();
  }

 private:
  struct Packet {
    Clock::time_point arrival;
    std::vector<char> bytes;
  };

  void read() {
    Clock::time_point free = Clock::now();
    std::array<char, packetBytes> buffer;
    for (;;) {
      const ssize_t count = recv(from_, buffer.data(), buffer.size(), 0);
      if (count <= 0) break;
      passing_(size_t(count));
      free = std::max(free, Clock::now()) + std::chrono::duration_cast<Clock::duration>(Milliseconds(double(count) / width_.bytesPerMs));
      const std::lock_guard lock(mutex_);
      packets_.push_back({free + std::chrono::milliseconds(width_.delayMs), {buffer.begin(), buffer.begin() + count}});
      changed_.notify_one();
    }
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_one();
  }

  void write() {
    for (;;) {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this] { return ended_ || !packets_.empty(); });
      if (packets_.empty()) break;
      const Packet packet = std::move(packets_.front());
      packets_.pop_front();
      lock.unlock();
      std::this_thread::sleep_until(packet.arrival);
      if (send(to_, packet.bytes.data(), packet.bytes.size(), MSG_NOSIGNAL) != ssize_t(packet.bytes.size())) break;
    }
    shutdown(to_, SHUT_WR);
    shutdown(from_, SHUT_RD);
  }

  int from_;
  int to_;
  SlowLine::Width width_;
  std::function<void(size_t)> passing_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Packet> packets_;
  bool ended_ = false;
  std::thread reader_;
  std::thread writer_;
};

}  // namespace

struct SlowLine::State {
  sockaddr_in server{};
  Width width;
  int listener = -1;
  std::atomic<bool> stop = false;
  std::atomic<qint64> bytes = 0;
  std::atomic<int> turns = 0;
  std::atomic<bool> serverSpokeLast = true;
  std::vector<std::thread> connections;
  std::thread accepting;
  std::mutex openMutex;
  std::set<int> open;  ///< under the mutex: sockets of both ends

  void setOpen(int socket, bool isOpen) {
    const std::lock_guard lock(openMutex);
    isOpen ? void(open.insert(socket)) : void(open.erase(socket));
  }

  void serve(int client) {
    const int target = newSocket();
    for (const int end : {client, target}) setOpen(end, true);
    if (connect(target, reinterpret_cast<const sockaddr*>(&server), sizeof server) == 0) {
      Way asking(client, target, width, [this](size_t count) {
        bytes += qint64(count);
        if (serverSpokeLast.exchange(false)) ++turns;
      });
      Way answering(target, client, width, [this](size_t count) {
        bytes += qint64(count);
        serverSpokeLast = true;
      });
    }
    for (const int end : {client, target}) {
      setOpen(end, false);
      close(end);
    }
  }

  void accept() {
    while (!stop) {
      pollfd waiting{listener, POLLIN, 0};
      if (poll(&waiting, 1, stopCheckMs) <= 0) continue;
      const int client = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
      if (client < 0) continue;
      const int on = 1;
      setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
      connections.emplace_back([this, client] { serve(client); });
    }
  }
};

SlowLine::SlowLine(const QString& own, const QString& server, quint16 port, Width width) : state_(std::make_unique<State>()) {
  state_->server = addressOf(server, port);
  state_->width = width;
  state_->listener = newSocket();
  const sockaddr_in address = addressOf(own, port);
  checked(bind(state_->listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), "bind");
  checked(listen(state_->listener, 4), "listen");
  state_->accepting = std::thread([this] { state_->accept(); });
}

/// The connections' ends have to be closed by then.
SlowLine::~SlowLine() {
  state_->stop = true;
  state_->accepting.join();
  for (std::thread& connection : state_->connections) connection.join();
  close(state_->listener);
}

void SlowLine::cut() {
  const std::lock_guard lock(state_->openMutex);
  for (const int end : state_->open) shutdown(end, SHUT_RDWR);
}

qint64 SlowLine::bytes() const { return state_->bytes; }

int SlowLine::turns() const { return state_->turns; }
