#pragma once

#include <QEvent>

/// Message 0x403 to every child window of the workspace: a slip was saved, and every slip editor is to show that slip.
class SlipSavedMessage : public QEvent {
 public:
  explicit SlipSavedMessage(qint64 id) : QEvent(eventType()), id_(id) {}
  static Type eventType() { return Type(User + 0x403); }
  qint64 id() const { return id_; }

 private:
  qint64 id_;
};
