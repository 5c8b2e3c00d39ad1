#include "app/ports.h"

Ports& ports() {
  static Ports all;
  return all;
}
