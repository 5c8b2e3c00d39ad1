#pragma once

#include <QWidget>

#include <memory>

/// Editor of one service slip; several may be open at once as child windows of the workspace.
class TfServisFis : public QWidget {
  Q_OBJECT
 public:
  explicit TfServisFis(QWidget* parent = nullptr);
  ~TfServisFis() override;

  /// Opens a new slip: empty controls, proposed number, today's date. Throws EDatabaseError.
  void Insert();
  /// Opens the slip with that key; a slip that is gone is told, and the window closes. Throws EDatabaseError.
  void Edit(qint64 TS_ID);
};

/// The newest editor that is open; null when there is none.
extern TfServisFis* fServisFis;
