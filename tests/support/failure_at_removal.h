#pragma once

#include "base/data/my_query.h"
#include "base/data/query_listener.h"
#include "base/exceptions.h"

/// Fails once a row of the query was deleted: what the server did in its transaction is to be taken back.
class FailureAtRemoval : private QueryListener {
 public:
  explicit FailureAtRemoval(TMyQuery& query) : query_(query) { query_.addListener(this); }
  ~FailureAtRemoval() override { query_.removeListener(this); }

 private:
  void queryReset() override {}
  void rowChanged(int) override {}
  void rowInserted(int) override {}
  void rowRemoved(int) override { throw EDatabaseError(QStringLiteral("deleted, and then failed")); }
  void queryEnds() override {}

  TMyQuery& query_;
};
