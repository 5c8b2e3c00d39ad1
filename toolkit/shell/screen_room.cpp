#include "toolkit/shell/screen_room.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace {
/// Logical pixels of a dialog's frame and buttons.
constexpr int aroundContent = 100;
/// The same with a line or two of text.
constexpr int aroundPicture = 190;
/// A dialog's frame.
constexpr QSize aroundDialog(20, 50);
/// What a screen that is enlarged by a broken factor may round away of a dialog; without it two scroll bars would come up.
constexpr QSize slack(2, 2);
}  // namespace

ScreenRoom::ScreenRoom(QWidget* content) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setWidget(content);
  viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
}

QSize ScreenRoom::sizeHint() const { return bounded(widget()->sizeHint().expandedTo(widget()->minimumSize())); }

QSize ScreenRoom::minimumSizeHint() const { return bounded(widget()->minimumSizeHint().expandedTo(widget()->minimumSize())); }

/// What the content asks for may grow while it shows; the dialog grows with it.
bool ScreenRoom::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::event(event);
}

QSize ScreenRoom::bounded(QSize wanted) const {
  // A text that wraps asks for its height by the width, which the content's own hints do not tell.
  if (const QLayout* layout = widget()->layout(); layout != nullptr && layout->hasHeightForWidth())
    wanted.setHeight(std::max(wanted.height(), layout->totalHeightForWidth(wanted.width())));
  const int room = screen()->availableSize().height() - aroundContent;
  if (wanted.height() <= room) return wanted + slack;
  // What can be lower than it would like to be is not scrolled.
  if (widget()->minimumSizeHint().expandedTo(widget()->minimumSize()).height() <= room) return {wanted.width() + slack.width(), room};
  return {wanted.width() + verticalScrollBar()->sizeHint().width() + slack.width(), room};
}

QSize withinScreen(const QWidget& dialog, QSize wanted) { return wanted.boundedTo(dialog.screen()->availableSize() - aroundDialog); }

QSize pictureWithinScreen(const QWidget& dialog, QSize wanted) {
  const int room = dialog.screen()->availableSize().height() - aroundPicture;
  return wanted.height() <= room ? wanted : wanted.scaled(wanted.width(), room, Qt::KeepAspectRatio);
}
