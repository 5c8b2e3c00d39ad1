#include "toolkit/edits/password_line.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

void maskPassword(QLineEdit& line) {
  line.setEchoMode(QLineEdit::Password);
  line.setStyleSheet(u"lineedit-password-character: 42"_s);  // "*"
}
