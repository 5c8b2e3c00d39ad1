#include "base/platform/time_zone.h"

#include <cstdlib>
#include <ctime>

void nameTimeZone() {
  constexpr int keepWhatIsSet = 0;
  setenv("TZ", ":/etc/localtime", keepWhatIsSet);
  tzset();
}
