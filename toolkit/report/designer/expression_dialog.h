#pragma once

#include "toolkit/report/designer/design_sample.h"

#include <QDialog>

class QLabel;
class QPlainTextEdit;

/// Writes a longer text or expression: names and functions at the side, what comes out below.
class ExpressionDialog : public QDialog {
  Q_OBJECT
 public:
  enum class Kind {
    Text,        ///< expressions stand in brackets
    Expression,  ///< is one expression
  };
  ExpressionDialog(QWidget* owner, const QString& caption, Kind kind, const QString& text, const DesignSample& sample);
  /// The text as it was given as long as nobody edited it, so that line ends stay what they were.
  QString text() const;

 Q_SIGNALS:
  void written();

 private:
  void insertName(const QString& name);
  void showResult();

  Kind kind_;
  const DesignSample& sample_;
  const QString given_;
  QString shown_;
  QPlainTextEdit* text_;
  QLabel* result_;
};
