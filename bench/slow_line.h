#pragma once

#include <QString>

#include <atomic>
#include <memory>

/// A line to another house: passes what is said between programs and the database server on, late and not faster than the line is
/// wide. On threads of its own.
class SlowLine {
 public:
  struct Width {
    int delayMs = 10;                ///< each way
    double bytesPerMs = 10e6 / 8000;  ///< each way
  };
  /// Listens at own, a loopback address, and speaks to server, both on that port. Throws std::system_error when the address cannot
  /// be had.
  SlowLine(const QString& own, const QString& server, quint16 port, Width width);
  ~SlowLine();
  SlowLine(const SlowLine&) = delete;
  SlowLine& operator=(const SlowLine&) = delete;

  /// Cuts every connection where it stands; later ones go through.
  void cut();

  /// Bytes passed on so far, both ways together.
  qint64 bytes() const;
  /// How often the server was waited for: a question behind an answer.
  int turns() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};
