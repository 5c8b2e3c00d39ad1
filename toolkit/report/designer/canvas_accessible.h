#pragma once

/// Makes the objects and bands of every canvas known to assistive software: as children with names, roles and places. Called
/// once, by the first canvas.
void describeCanvases();

class DesignCanvas;
/// Tells which object has the keyboard now.
void tellFocus(DesignCanvas& canvas);
/// Tells that the object that has the keyboard may have another place or name.
void tellChange(DesignCanvas& canvas);
