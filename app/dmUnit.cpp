#include "app/dmUnit.h"

#include "app/platform/server_check.h"

using namespace Qt::StringLiterals;

TDM* DM = nullptr;

namespace {
/// Short, so that the check and the connection's own time-out together stay bearable.
constexpr int answerTimeoutMs = 3000;
}  // namespace

int ServerControl::serviceStatus([[maybe_unused]] const QString& serviceName) const {
  return serverAnswers(connection_.Server, connection_.Port, answerTimeoutMs) ? Running : Stopped;
}

TDM::TDM() : pGetQ(MySQL, u"pGetQ"_s), MyServerControl1(MySQL) { DM = this; }

TDM::~TDM() { DM = nullptr; }
