#include "toolkit/shell/ribbon_group.h"

#include "base/guard.h"
#include "toolkit/shell/ribbon_button.h"

#include <QAction>
#include <QMenu>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int Margin = 5;
constexpr int Gap = 1;
constexpr int RowsOfSmall = 3;

QFont captionFont(QFont font) {
  font.setPointSizeF(font.pointSizeF() * 0.88);
  return font;
}
}  // namespace

RibbonGroup::RibbonGroup(const QString& caption, const QIcon& icon, QWidget* parent)
    : QWidget(parent), caption_(caption), menu_(new QMenu(this)) {
  auto* drop = new QAction(icon, caption, this);
  drop->setMenu(menu_);
  collapsed_ = new RibbonButton(drop, this);
  collapsed_->hide();
  setAccessibleName(caption);
}

void RibbonGroup::addCommand(QAction* action) {
  buttons_.append(new RibbonButton(action, this));
  menu_->addAction(action);
  connectGuarded(action, &QAction::changed, this, [this] { placeButtons(); });
  placeButtons();
}

void RibbonGroup::setMode(RibbonGroupMode mode) {
  if (mode_ == mode) return;
  mode_ = mode;
  placeButtons();
}

QList<RibbonButton*> RibbonGroup::visibleButtons() const {
  QList<RibbonButton*> visible;
  for (RibbonButton* button : buttons_)
    if (button->defaultAction()->isVisible()) visible.append(button);
  return visible;
}

QList<QRect> RibbonGroup::placesIn(RibbonGroupMode mode) const {
  const QSize whole = collapsed_->sizeIn(RibbonButtonSize::Large);
  if (mode == RibbonGroupMode::Collapsed) return {QRect({Margin, Margin}, whole)};
  const QList<RibbonButton*> visible = visibleButtons();
  QList<QRect> places;
  int left = Margin;
  if (mode == RibbonGroupMode::Large) {
    for (RibbonButton* button : visible) {
      places.append(QRect(left, Margin, button->sizeIn(RibbonButtonSize::Large).width(), whole.height()));
      left = places.last().right() + 1 + Gap;
    }
    return places;
  }
  for (qsizetype first = 0; first < visible.size(); first += RowsOfSmall) {
    const auto column = visible.mid(first, RowsOfSmall);
    int width = 0;
    for (RibbonButton* button : column) width = std::max(width, button->sizeIn(RibbonButtonSize::Small).width());
    for (int row = 0; row < column.size(); ++row)
      places.append(QRect(left, Margin + row * whole.height() / RowsOfSmall, width, whole.height() / RowsOfSmall));
    left += width + Gap;
  }
  return places;
}

int RibbonGroup::widthIn(RibbonGroupMode mode) const {
  int right = Margin;
  for (const QRect& place : placesIn(mode)) right = std::max(right, place.right() + 1);
  const int caption = QFontMetrics(captionFont(font())).horizontalAdvance(caption_) + 2 * Margin;
  return std::max(right + Margin + 1, caption);
}

QSize RibbonGroup::sizeHint() const {
  const int buttons = collapsed_->sizeIn(RibbonButtonSize::Large).height();
  return {widthIn(mode_), Margin + buttons + QFontMetrics(captionFont(font())).height() + 3};
}

void RibbonGroup::placeButtons() {
  const QList<QRect> places = placesIn(mode_);
  const bool collapsed = mode_ == RibbonGroupMode::Collapsed;
  const QList<RibbonButton*> shown = collapsed ? QList<RibbonButton*>{collapsed_} : visibleButtons();
  collapsed_->setVisible(collapsed);
  for (RibbonButton* button : buttons_) button->setVisible(shown.contains(button));
  for (qsizetype i = 0; i < shown.size(); ++i) {
    shown[i]->setButtonSize(mode_ == RibbonGroupMode::Compact ? RibbonButtonSize::Small : RibbonButtonSize::Large);
    shown[i]->setGeometry(places[i]);
  }
  updateGeometry();
  update();
}

void RibbonGroup::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(captionFont(font()));
  painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText).darker(115));
  painter.drawText(rect().adjusted(0, 0, -1, -3), Qt::AlignHCenter | Qt::AlignBottom, caption_);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(width() - 1, Margin + 2, width() - 1, height() - Margin - 2);
}
