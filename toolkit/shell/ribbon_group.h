#pragma once

#include <QIcon>
#include <QList>
#include <QWidget>

class QMenu;
class RibbonButton;

/// How much room a group takes: all buttons large, small ones in columns of three, or one button that drops them down.
enum class RibbonGroupMode { Large, Compact, Collapsed };

/// A captioned group of commands in the ribbon.
class RibbonGroup : public QWidget {
  Q_OBJECT
 public:
  RibbonGroup(const QString& caption, const QIcon& icon, QWidget* parent = nullptr);

  /// Adds a command at the end; the group does not take the action over.
  void addCommand(QAction* action);
  const QString& caption() const { return caption_; }
  QList<RibbonButton*> buttons() const { return buttons_; }
  /// The button that drops the commands down; visible while the group is collapsed.
  RibbonButton* dropDownButton() const { return collapsed_; }
  void setMode(RibbonGroupMode mode);
  RibbonGroupMode mode() const { return mode_; }
  /// Width in device-independent pixels that the group takes in a mode.
  int widthIn(RibbonGroupMode mode) const;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Where the visible buttons stand in a mode; one rectangle, the drop-down button's, when collapsed.
  QList<QRect> placesIn(RibbonGroupMode mode) const;
  QList<RibbonButton*> visibleButtons() const;
  void placeButtons();

  QString caption_;
  RibbonGroupMode mode_ = RibbonGroupMode::Large;
  QList<RibbonButton*> buttons_;
  QMenu* menu_;
  RibbonButton* collapsed_;
};
