#pragma once

/// From now on large blocks of memory go back to the system when they are freed, so that what a long list or a picture took does
/// not stay with the program for the day. To be called before the first of them.
void giveBackLargeBlocks();
