#include "app/ports.h"

#include "base/exceptions.h"

using namespace Qt::StringLiterals;

Ports& ports() {
  static Ports all;
  return all;
}

void logFailure(const QString& message, const std::exception& error) {
  logMessage(message, &error);
  const auto* database = dynamic_cast<const EDatabaseError*>(&error);
  if (database != nullptr && database->hasQuery()) logMessage(database->queryName() + u"| "_s + database->queryText());
}
