#pragma once

#include <QPoint>

class EditLine;
class QPlainTextEdit;

/// The Turkish context menus of text inputs, at a place of the screen.
void showEditMenu(EditLine* line, QPoint globalPlace);
void showEditMenu(QPlainTextEdit* memo, QPoint globalPlace);
