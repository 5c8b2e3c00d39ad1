#pragma once

#include "base/data/my_query.h"
#include "base/data/query_listener.h"

/// A row built at the client in the shape of the library's rows: one block of bytes, a pointer to each cell, and one
/// pointer behind the last.
struct TMyQuery::OwnRow {
  QByteArray bytes;
  std::vector<char*> cells;
};

template <class Call>
void TMyQuery::notify(Call call) {
  // A listener may take itself off while it is told.
  const std::vector<QueryListener*> told = listeners_;
  for (QueryListener* listener : told) call(*listener);
}
