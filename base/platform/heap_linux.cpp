#include "base/platform/heap.h"

#include <malloc.h>

void giveBackLargeBlocks() {
  constexpr int largeBytes = 128 * 1024;
  mallopt(M_MMAP_THRESHOLD, largeBytes);  // where it begins anyhow; once told, it no longer grows with every block that is freed
}
