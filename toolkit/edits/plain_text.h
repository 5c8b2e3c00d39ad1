#pragma once

#include <QString>

class QTextDocument;

/// The text of a document with "\n" at the ends of its lines; hard blanks stay, which QTextDocument::toPlainText makes plain ones.
QString plainTextOf(const QTextDocument& document);
