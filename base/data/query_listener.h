#pragma once

/// Told when rows of a query change; models register one.
class QueryListener {
 public:
  virtual ~QueryListener() = default;
  virtual void queryReset() = 0;               ///< opened, closed, re-read, restored
  virtual void rowChanged(int row) = 0;
  virtual void rowInserted(int row) = 0;
  virtual void rowRemoved(int row) = 0;
  /// The query is being destroyed: it is to be forgotten without a signal, since whoever would hear it may be half gone.
  virtual void queryEnds() = 0;
};
