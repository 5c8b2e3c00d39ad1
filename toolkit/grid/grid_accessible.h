#pragma once

/// Makes grids speak to assistive software: a table of rows, captions and cells by name. Takes the place of Qt's own
/// interface for table views, which hands out cells that crash or tell of another row once rows have changed.
void installGridAccessible();
