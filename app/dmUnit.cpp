#include "app/dmUnit.h"

#include "app/platform/server_check.h"

using namespace Qt::StringLiterals;

TDM* DM = nullptr;

int ServerControl::serviceStatus([[maybe_unused]] const QString& serviceName) const {
  return serverAnswers(connection_.Server, connection_.Port, connection_.ConnectTimeoutSeconds * 1000) ? Running : Stopped;
}

TDM::TDM() : pGetQ(MySQL, u"pGetQ"_s), MyServerControl1(MySQL) { DM = this; }

TDM::~TDM() { DM = nullptr; }
