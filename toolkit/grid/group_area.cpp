#include "toolkit/grid/group_area.h"

#include "base/guard.h"

#include <QBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QToolButton>

using namespace Qt::StringLiterals;

GroupArea::GroupArea(QWidget* parent)
    : QWidget(parent), row_(new QHBoxLayout(this)), prompt_(new QLabel(u"Gruplamak istediğiniz sütunun başlığını buraya sürükleyin"_s, this)) {
  setAccessibleName(u"Gruplama alanı"_s);
  row_->setContentsMargins(8, 4, 8, 4);
  prompt_->setForegroundRole(QPalette::PlaceholderText);
  row_->addWidget(prompt_);
  row_->addStretch(1);
  setFixedHeight(fontMetrics().height() + 18);
}

void GroupArea::setLevels(const std::vector<Level>& levels) {
  const auto old = findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
  for (QToolButton* button : old) {
    button->hide();
    button->deleteLater();
  }
  prompt_->setVisible(levels.empty());
  int place = 0;
  for (const Level& level : levels) {
    auto* button = new QToolButton(this);
    button->setText(level.caption + (level.descending ? u"  ▼"_s : u"  ▲"_s));
    button->setAccessibleName(u"%1 grubu"_s.arg(level.caption));
    button->setToolTip(u"Tıklayınca sırası değişir"_s);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    auto* menu = new QMenu(button);
    connectGuarded(menu->addAction(u"Gruplamadan çıkar"_s), &QAction::triggered, this, [this, field = level.field] { Q_EMIT removed(field); });
    button->setMenu(menu);
    connectGuarded(button, &QToolButton::clicked, this, [this, field = level.field] { Q_EMIT turned(field); });
    row_->insertWidget(place++, button);
  }
}

void GroupArea::setTargeted(bool targeted) {
  if (targeted_ == targeted) return;
  targeted_ = targeted;
  update();
}

void GroupArea::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Window));
  painter.setPen(palette().color(targeted_ ? QPalette::Highlight : QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, targeted_ ? -1 : 0));
}
