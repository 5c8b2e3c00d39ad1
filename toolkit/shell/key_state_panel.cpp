#include "toolkit/shell/key_state_panel.h"

#include "base/guard.h"
#include "base/platform/keyboard_state.h"

#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>

using namespace Qt::StringLiterals;

KeyStatePanel::KeyStatePanel(QWidget* parent)
    : QWidget(parent),
      caps_(new QLabel(u"CAPS"_s, this)),
      num_(new QLabel(u"NUM"_s, this)),
      scroll_(new QLabel(u"SCRL"_s, this)),
      insert_(new QLabel(u"INS"_s, this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(6, 0, 6, 0);
  row->setSpacing(8);
  for (QLabel* label : {caps_, num_, scroll_, insert_}) row->addWidget(label);
  insert_->setMinimumWidth(insert_->fontMetrics().horizontalAdvance(u"OVR"_s) + 2);
  qApp->installEventFilter(this);
  refresh();
}

void KeyStatePanel::refresh() {
  const KeyboardState state = keyboardState();
  setOn(caps_, state.capsLock);
  setOn(num_, state.numLock);
  setOn(scroll_, state.scrollLock);
  insert_->setText(overwrite_ ? u"OVR"_s : u"INS"_s);
}

/// True while the keyboard is in a control that has work of its own for the key.
bool KeyStatePanel::isInsertTaken() {
  for (const QWidget* each = QApplication::focusWidget(); each != nullptr; each = each->parentWidget())
    if (each->property(insertKeyTaken).toBool()) return true;
  return false;
}

void KeyStatePanel::setOn(QLabel* label, bool on) { label->setEnabled(on); }

/// Looks at the keys once each, as they reach a window of the program.
bool KeyStatePanel::eventFilter(QObject* watched, QEvent* event) {
  guarded(this, [&] {
    if (event->type() == QEvent::ApplicationActivate) refresh();
    if (!watched->isWindowType() || (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)) return;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool pressed = event->type() == QEvent::KeyPress && !key->isAutoRepeat();
    switch (key->key()) {
      case Qt::Key_Insert:
        if (pressed && (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && !isInsertTaken()) overwrite_ = !overwrite_;
        [[fallthrough]];
      case Qt::Key_CapsLock:
      case Qt::Key_NumLock:
      case Qt::Key_ScrollLock:
        refresh();
        break;
      default:
        break;
    }
  });
  return QWidget::eventFilter(watched, event);
}
