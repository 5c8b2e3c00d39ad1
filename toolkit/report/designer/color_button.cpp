#include "toolkit/report/designer/color_button.h"

#include "base/guard.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QWidgetAction>

using namespace Qt::StringLiterals;

namespace {

struct Swatch {
  QRgb color;
  QStringView name;
};

constexpr int columns = 6;
constexpr Swatch swatches[] = {
    {0xff000000, u"Siyah"},      {0xff3c4650, u"Koyu gri"},  {0xff5f6b76, u"Gri"},        {0xffc3ccd5, u"Açık gri"},
    {0xffeef2f6, u"Çok açık gri"}, {0xffffffff, u"Beyaz"},   {0xff7b1c1c, u"Bordo"},      {0xffc62828, u"Kırmızı"},
    {0xffe65100, u"Turuncu"},    {0xfff9a825, u"Sarı"},      {0xfffff3cd, u"Açık sarı"},  {0xfffbe3e3, u"Açık kırmızı"},
    {0xff1b4d2e, u"Koyu yeşil"}, {0xff2e7d32, u"Yeşil"},     {0xff00838f, u"Turkuaz"},    {0xffdff1e3, u"Açık yeşil"},
    {0xffd9f0f3, u"Açık turkuaz"}, {0xff8d6e63, u"Kahve"},   {0xff1f4e79, u"Lacivert"},   {0xff1b66a8, u"Mavi"},
    {0xff90caf9, u"Açık mavi"},  {0xff6a1b9a, u"Mor"},       {0xffad1457, u"Pembe"},      {0xffe8dff2, u"Açık mor"}};

QIcon swatchIcon(const QColor& color, int side) {
  QPixmap picture(side, side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setPen(QColor(0x80, 0x88, 0x90));
  if (color.isValid()) {
    painter.setBrush(color);
    painter.drawRect(0, 0, side - 1, side - 1);
  } else {
    painter.drawRect(0, 0, side - 1, side - 1);
    painter.drawLine(0, side - 1, side - 1, 0);
  }
  return picture;
}

}  // namespace

ColorButton::ColorButton(QWidget* parent) : QToolButton(parent) {
  setPopupMode(InstantPopup);
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  auto* menu = new QMenu(this);
  setMenu(menu);
  connectGuarded(menu, &QMenu::aboutToShow, this, [this] { fillMenu(); });
  setColor(QColor());
}

void ColorButton::setColor(const QColor& color) {
  color_ = color;
  setIcon(swatchIcon(color, 16));
  setText(color.isValid() ? color.name() : u"Yok"_s);
}

void ColorButton::choose(const QColor& color) {
  menu()->close();
  setColor(color);
  Q_EMIT colorChosen(color);
}

void ColorButton::fillMenu() {
  menu()->clear();
  auto* field = new QWidget(menu());
  auto* grid = new QGridLayout(field);
  grid->setSpacing(2);
  int place = 0;
  for (const Swatch& each : swatches) {
    auto* button = new QToolButton(field);
    const QColor color(each.color);
    button->setIcon(swatchIcon(color, 18));
    button->setAutoRaise(true);
    button->setToolTip(each.name.toString());
    button->setAccessibleName(each.name.toString());
    button->setFocusPolicy(Qt::StrongFocus);
    grid->addWidget(button, place / columns, place % columns);
    connectGuarded(button, &QToolButton::clicked, this, [this, color] { choose(color); });
    ++place;
  }
  auto* written = new QLineEdit(color_.isValid() ? color_.name() : QString(), field);
  written->setObjectName(u"colorText"_s);
  written->setAccessibleName(u"Renk kodu"_s);
  written->setPlaceholderText(u"#rrggbb"_s);
  grid->addWidget(written, place / columns, 0, 1, columns);
  connectGuarded(written, &QLineEdit::returnPressed, this, [this, written] {
    const QColor color(written->text().trimmed());
    if (color.isValid()) choose(color);
  });
  auto* action = new QWidgetAction(menu());
  action->setDefaultWidget(field);
  menu()->addAction(action);
  if (!canBeNone_) return;
  QAction* none = menu()->addAction(swatchIcon(QColor(), 18), u"Yok"_s);
  connectGuarded(none, &QAction::triggered, this, [this] { choose(QColor()); });
}
