#pragma once

/// Names the workstation's time zone to the C library once; left unnamed, it would ask the file system at every conversion
/// of a local time, hundreds of thousands of times for a list of slips. To be called before the first one.
void nameTimeZone();
