#pragma once

#include <QString>

/// A box of a form with its name, its caption and its width in logical pixels.
template <class Box>
Box* namedBox(Box* box, const QString& name, const QString& caption, int width) {
  box->setObjectName(name);
  box->setCaption(caption);
  box->setFixedWidth(width);
  return box;
}
