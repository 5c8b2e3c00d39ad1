#pragma once

#include "simulator/simulator.h"

#include <optional>

/// What the simulator's program adds to the services: settings for practice, and commands in words.
namespace Practice {

/// Makes the program in folder, which has a separator behind it, speak to the simulator: the services' addresses and the
/// certificate anew each time, choices and templates only where there are none yet. The accounts go to the user's settings.
/// Throws EInOutError.
void prepare(const Simulator& simulator, const QString& folder);

/// Customers are told by SMS and e-mail from the first saved slip on; switches that a user has saved stay as they are. Throws
/// EInOutError.
void turnOnNotices(const QString& folder);

/// A command that was typed. Nothing for one that is none.
struct Command {
  enum class Kind { Behave, Ring, Credit, End } kind = Kind::End;
  Service service = Service::Json;
  Behaviour behaviour;
  QString number;
  int credit = 0;
};
std::optional<Command> commandIn(const QString& line);

/// The commands, for whoever asks.
QString help();

}  // namespace Practice
