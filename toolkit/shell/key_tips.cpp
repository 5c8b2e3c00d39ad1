#include "toolkit/shell/key_tips.h"

#include "base/guard.h"
#include "base/text_tools.h"
#include "base/turkish_text.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QToolButton>
#include <QWindow>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int BadgePadding = 4;

/// Keys that move on or run the focused button, without a letter.
constexpr std::array PlainKeys{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Tab,  Qt::Key_Backtab,
                               Qt::Key_Left,   Qt::Key_Right, Qt::Key_Up,    Qt::Key_Down};

/// The letter under which a key is looked up: both "i" and "ı" find the badge "İ".
QChar plain(QChar letter) { return TextTools::LoginTrBuyukHarf(QString(letter)).at(0); }

class Badge : public QWidget {
 public:
  Badge(QWidget* parent, QChar letter) : QWidget(parent), letter_(letter) {
    setObjectName(u"keyTip"_s);
    setAccessibleName(QString(letter));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont bold = font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 0.9);
    setFont(bold);
    const QFontMetrics metrics(bold);
    resize(std::max(metrics.horizontalAdvance(letter), metrics.horizontalAdvance(u'M')) + 2 * BadgePadding,
           metrics.height() + 1);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(palette().color(QPalette::ToolTipBase));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawText(rect(), Qt::AlignCenter, QString(letter_));
  }

 private:
  QChar letter_;
};

}  // namespace

QList<QChar> keyTipLetters(const QStringList& captions) {
  QList<QChar> letters;
  QString taken;
  for (const QString& caption : captions) {
    const QString upper = TurkishText::upper(caption);
    QString candidates;
    for (const bool wordStarts : {true, false})
      for (qsizetype i = 0; i < upper.size(); ++i)
        if (upper[i].isLetter() && (i == 0 || !upper[i - 1].isLetterOrNumber()) == wordStarts) candidates += upper[i];
    candidates += u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"_s;
    const auto free = std::ranges::find_if(candidates, [&](QChar letter) { return !taken.contains(plain(letter)); });
    letters.append(free == candidates.end() ? QChar() : *free);
    if (free != candidates.end()) taken += plain(*free);
  }
  return letters;
}

KeyTips::KeyTips(QWidget* bar) : QObject(bar), bar_(bar) { qApp->installEventFilter(this); }

void KeyTips::show(const QList<std::pair<QToolButton*, QChar>>& buttons) {
  hide();
  for (const auto& [button, letter] : buttons) {
    if (letter.isNull() || !button->isVisible() || !button->isEnabled()) continue;
    buttons_.insert(plain(letter), button);
    // Over the lower edge of the icon, which leaves the caption readable.
    const int icon = button->iconSize().height();
    const bool captionBelow = button->height() > 2 * icon;
    const QPoint place = captionBelow ? QPoint(button->width() / 2, icon)
                         : button->width() > 3 * icon ? QPoint(icon / 2 + 6, button->height() / 2 + icon / 4)
                                                      : QPoint(button->width() / 2, button->height() - 5);
    addBadge(bar_, letter, button->mapTo(bar_, place));
  }
}

void KeyTips::addBadge(QWidget* parent, QChar letter, QPoint centre) {
  auto* badge = new Badge(parent, letter);
  QRect place(QPoint(), badge->size());
  place.moveCenter(centre);
  place.moveLeft(std::clamp(place.left(), 0, std::max(0, parent->width() - place.width())));
  place.moveTop(std::clamp(place.top(), 0, std::max(0, parent->height() - place.height())));
  badge->setGeometry(place);
  badge->show();
  badges_.append(badge);
}

void KeyTips::hide() {
  for (const QPointer<QWidget>& badge : std::exchange(badges_, {})) delete badge.data();
  buttons_.clear();
  entries_.clear();
}

bool KeyTips::press(const QString& typed) {
  if (typed.size() != 1 || !isShown()) return false;
  const QPointer<QToolButton> button = buttons_.value(plain(typed[0]));
  if (button.isNull()) return false;
  hide();
  postGuarded(button, [this, button] {
    if (button->menu() != nullptr || (button->defaultAction() != nullptr && button->defaultAction()->menu() != nullptr)) {
      openMenu(button);
    } else {
      Q_EMIT chosen();
      button->click();
    }
  });
  return true;
}

void KeyTips::openMenu(QToolButton* button) {
  const QPointer<KeyTips> self(this);
  inMenu_ = true;
  button->showMenu();  // comes back once the menu is closed
  if (self.isNull()) return;
  inMenu_ = false;
  hide();
  const QPointer<QAction> entry = std::exchange(entry_, {});
  Q_EMIT left();
  if (entry) entry->trigger();
}

void KeyTips::decorate(QMenu* menu) {
  QStringList captions;
  QList<QAction*> usable;
  for (QAction* action : menu->actions())
    if (action->isVisible() && !action->isSeparator()) {
      captions.append(action->text());
      usable.append(action);
    }
  const QList<QChar> letters = keyTipLetters(captions);
  for (qsizetype i = 0; i < usable.size(); ++i) {
    if (letters[i].isNull() || !usable[i]->isEnabled()) continue;
    const QRect row = menu->actionGeometry(usable[i]);
    entries_[menu].insert(plain(letters[i]), usable[i]);
    addBadge(menu, letters[i], QPoint(row.left() + row.height() / 2, row.center().y()));
  }
  if (menu->activeAction() == nullptr && !usable.isEmpty()) menu->setActiveAction(usable.first());
}

bool KeyTips::pressInMenu(QMenu* menu, const QString& typed) {
  if (typed.size() != 1) return false;
  const QPointer<QAction> action = entries_.value(menu).value(plain(typed[0]));
  if (action.isNull()) return false;
  if (action->menu() != nullptr) {
    menu->setActiveAction(action);  // opens its menu, which gets badges as it shows
    return true;
  }
  entry_ = action;  // runs after the menu
  while (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
    if (popup->isVisible()) break;
  }
  return true;
}

bool KeyTips::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  guarded(this, [&] {
    watchAltKey(watched, event);
    auto* menu = inMenu_ ? qobject_cast<QMenu*>(watched) : nullptr;
    if (menu != nullptr && event->type() == QEvent::Show) {
      postGuarded(menu, [this, menu] {
        if (inMenu_ && menu->isVisible()) decorate(menu);
      });
    } else if (menu != nullptr && event->type() == QEvent::KeyPress) {
      taken = pressInMenu(menu, static_cast<QKeyEvent*>(event)->text());
    } else if (isShown() && !inMenu_ &&
               (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel ||
                (watched == bar_->window() && (event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Resize)))) {
      hide();
      const auto* press = event->type() == QEvent::MouseButtonPress ? static_cast<const QMouseEvent*>(event) : nullptr;
      if (press != nullptr && bar_->rect().contains(bar_->mapFromGlobal(press->globalPosition().toPoint())))
        Q_EMIT pressedOnBar();
      else
        Q_EMIT left();
    } else if (isShown() && !inMenu_ && event->type() == QEvent::KeyPress &&
               std::ranges::find(PlainKeys, static_cast<QKeyEvent*>(event)->key()) != PlainKeys.end()) {
      hide();
    }
  });
  return taken;
}

/// Another key, a button or a change of window between the two makes Alt part of something else.
void KeyTips::watchAltKey(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride: {
      if (!watched->isWindowType()) return;
      const auto* key = static_cast<QKeyEvent*>(event);
      altAlone_ = key->key() == Qt::Key_Alt && (key->modifiers() & ~Qt::AltModifier) == Qt::NoModifier &&
                  watched == bar_->window()->windowHandle() && QApplication::activePopupWidget() == nullptr &&
                  (altAlone_ || !key->isAutoRepeat());
      return;
    }
    case QEvent::KeyRelease:
      if (!watched->isWindowType() || static_cast<QKeyEvent*>(event)->isAutoRepeat()) return;
      if (std::exchange(altAlone_, false) && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt) Q_EMIT asked();
      return;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::WindowDeactivate:
      altAlone_ = false;
      return;
    default:
      return;
  }
}
