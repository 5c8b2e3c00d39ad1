#pragma once

#include "base/data/my_query.h"

/// No check for changes by others while this lives. At its end the check is on, whether it was before or not: meant.
class RowVersionOff {
 public:
  explicit RowVersionOff(TMyQuery& query) : query_(query) { query_.Options.CheckRowVersion = false; }
  ~RowVersionOff() { query_.Options.CheckRowVersion = true; }
  Q_DISABLE_COPY_MOVE(RowVersionOff)

 private:
  TMyQuery& query_;
};
