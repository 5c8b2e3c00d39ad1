#include "app/dmUnit.h"

#include "app/ports.h"
#include "base/data/my_query.h"
#include "base/platform/server_check.h"
#include "app/rights.h"

using namespace Qt::StringLiterals;

TDM* DM = nullptr;

namespace {
/// Short, so that the check and the connection's own time-out together stay bearable.
constexpr int answerTimeoutMs = 3000;
}  // namespace

int ServerControl::serviceStatus([[maybe_unused]] const QString& serviceName) const {
  return serverAnswers(connection_.Server, connection_.Port, answerTimeoutMs) ? Running : Stopped;
}

TDM::TDM() : MyServerControl1(MySQL), scratch_(std::make_unique<TMyQuery>(MySQL, u"pGetQ"_s)), pGetQ(*scratch_) { DM = this; }

TDM::~TDM() { DM = nullptr; }

int TDM::Kullanici_Yetkileri(const QString& path) const {
  static const CheckTree withoutWorkspace;
  const CheckTree* tree = ports().rights();
  return Rights::check(MySQL.Username, tree != nullptr ? *tree : withoutWorkspace, path, [&](const std::exception& error) {
    ports().logMark(u"Yetki"_s, u"Yetki Path hatası...: "_s + path, error);
  });
}
