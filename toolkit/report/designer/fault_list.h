#pragma once

#include "toolkit/report/designer/design_faults.h"

#include <QListWidget>

class DesignCanvas;
class QTimer;

/// What is wrong with the report, looked for anew when it rests; a click goes to the object.
class FaultList : public QListWidget {
  Q_OBJECT
 public:
  FaultList(DesignCanvas& canvas, const DesignSample& sample, QWidget* parent = nullptr);

  /// Looks at once.
  void search();
  const std::vector<DesignFault>& faults() const { return faults_; }

 Q_SIGNALS:
  void searched(int count);

 private:
  void goTo(int row);

  DesignCanvas& canvas_;
  const DesignSample& sample_;
  std::vector<DesignFault> faults_;
  QTimer* rest_;
};
