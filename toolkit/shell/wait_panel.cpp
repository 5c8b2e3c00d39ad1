#include "toolkit/shell/wait_panel.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace {

/// Until then the cursor's shape says enough; what comes and goes sooner only flickers.
constexpr int quietMs = 1000;

QWidget* windowInFront() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return QApplication::activeWindow();
}

}  // namespace

WaitPanel::WaitPanel() { setWaitObserver(this); }

WaitPanel::~WaitPanel() { setWaitObserver(nullptr); }

void WaitPanel::waitBegins() {
  pause_.emplace();
  hourglass_.emplace();
  since_.start();
}

void WaitPanel::waiting() {
  if (!panel_ && since_.elapsed() >= quietMs) show();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void WaitPanel::waitEnds() {
  delete panel_;
  hourglass_.reset();
  pause_.reset();
}

void WaitPanel::show() {
  QWidget* window = windowInFront();
  if (window == nullptr) return;
  auto* frame = new QFrame(window);
  frame->setObjectName(u"ServerWait"_s);
  frame->setAutoFillBackground(true);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  auto* label = new QLabel(u"Sunucunun yanıtı bekleniyor…"_s);
  auto* bar = new QProgressBar;
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  frame->setAccessibleName(label->text());
  auto* layout = new QHBoxLayout(frame);
  layout->setContentsMargins(16, 12, 16, 12);
  layout->addWidget(label);
  layout->addWidget(bar);
  frame->adjustSize();
  frame->move(window->rect().center() - frame->rect().center());
  frame->show();
  frame->raise();
  panel_ = frame;
}
