#pragma once

class QApplication;

/// Style, colours, font and icon theme of the whole program, and the toolkit's own texts in Turkish.
void applyLook(QApplication& application);
