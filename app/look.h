#pragma once

class QApplication;

enum class LookColors { Light, Dark };

/// Style, colours, font and icon theme of the whole program, and the toolkit's own texts in Turkish.
void applyLook(QApplication& application, LookColors colors = LookColors::Light);

/// Dark when the environment variable KVTK_LOOK is "dark".
LookColors wantedColors();
