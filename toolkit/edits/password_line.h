#pragma once

class QLineEdit;

/// Shows what is typed into the line as "*".
void maskPassword(QLineEdit& line);
