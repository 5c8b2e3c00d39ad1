// Saves one slip after the other until it is killed. Tells on its standard output the server's number of its connection, one
// line, then "(" before and ")" after each save.
#include "tests/faults/screen_slip.h"
#include "tests/support/test_database.h"

#include <unistd.h>

namespace {

void tell(const QByteArray& text) {
  if (write(STDOUT_FILENO, text.constData(), size_t(text.size())) != text.size()) _exit(2);
}

}  // namespace

int main() {
  TMyConnection connection;
  TestDatabase::open(connection);
  tell(QByteArray::number(TestDatabase::idOf(connection)) + '\n');
  for (int number = 1;; ++number) {
    ScreenSlip slip(connection, sampleSlip(number));
    tell("(");
    if (slip.save()) return 1;
    tell(")");
  }
}
